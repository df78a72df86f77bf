#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

/// Writes what the primary screen shows to the PNG file of the one argument.
int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    if (argc != 2) return 2;
    const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(0);
    return picture.save(QString::fromLocal8Bit(argv[1]), "PNG") ? 0 : 1;
}
