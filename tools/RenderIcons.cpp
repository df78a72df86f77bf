#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

namespace {

/// Six pixels to the unit of the drawings: enough for any screen.
constexpr int kSide = 150;
constexpr int kQuality = 97;

/// The layers one over the other on white, for JPEG knows no transparency.
bool render(std::initializer_list<QString> layers, const QString& jpeg) {
    QImage image(kSide, kSide, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (const QString& layer : layers) {
        QSvgRenderer drawing(layer);
        if (!drawing.isValid()) return false;
        drawing.render(&painter, image.rect());
    }
    painter.end();
    return image.save(jpeg, "JPG", kQuality);
}

}  // namespace

/// Usage: render_icons FOLDER PLATE.svg NAME.svg ...
/// Makes FOLDER/tb_NAME.jpg of each drawing and FOLDER/tb_NAME_S.jpg, the same on the plate.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 4) return 2;
    const QString& plate = arguments[2];
    for (const QString& drawing : arguments.mid(3)) {
        const QString jpeg = arguments[1] + "/tb_" + QFileInfo(drawing).baseName();
        if (render({drawing}, jpeg + ".jpg") && render({plate, drawing}, jpeg + "_S.jpg")) continue;
        std::fprintf(stderr, "render_icons: %s failed\n", qPrintable(drawing));
        return 1;
    }
    return 0;
}
