#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <array>

/// Usage: screenshot FILE.png [X Y WIDTH HEIGHT]    Writes what the primary screen shows, or a part
/// of it, to a PNG file.
int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() != 2 && arguments.size() != 6) return 2;
    std::array<int, 4> part{0, 0, -1, -1};
    for (int i = 2; i < arguments.size(); ++i) part[i - 2] = arguments[i].toInt();
    const auto [x, y, width, height] = part;
    const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(0, x, y, width, height);
    return picture.save(arguments[1], "PNG") ? 0 : 1;
}
