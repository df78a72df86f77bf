#include <benchmark/benchmark.h>

#include <QImage>
#include <QPainter>

#include "system/QtDesktop.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

QImage square(int side) {
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter(&image).fillRect(side / 4, side / 4, side / 2, side / 2, Qt::red);
    return image;
}

/// One frame of a button of 120 x 30 with a picture, by shape and caption style.
void paintButton(benchmark::State& state) {
    QtDesktop desktop;
    XPButton button(desktop);
    button.resize(120, 30);
    button.SetCaption(QStringLiteral("&Caption"));
    button.SetPicture(ButtonPicture::bitmap(square(64)));
    button.SetButtonShape(static_cast<int>(state.range(0)));
    button.SetCaptionStyle(static_cast<int>(state.range(1)));
    QImage screen(120, 30, QImage::Format_RGB32);
    QPainter painter(&screen);
    for (auto _ : state) PaintFrame(painter, button.frame());
}
BENCHMARK(paintButton)->Args({0, 0})->Args({0, 2})->Args({3, 2})->Args({4, 2})->Args({6, 0});

/// A new size: region, layout, the copy of a large picture, and a frame.
void resizeButton(benchmark::State& state) {
    QtDesktop desktop;
    XPButton button(desktop);
    button.SetCaption(QStringLiteral("&Caption"));
    button.SetPicture(ButtonPicture::bitmap(square(static_cast<int>(state.range(0)))));
    button.SetPictureSize(4);
    QImage screen(400, 200, QImage::Format_RGB32);
    QPainter painter(&screen);
    int width = 0;
    for (auto _ : state) {
        button.resize(300 + width++ % 100, 200);
        PaintFrame(painter, button.frame());
    }
}
BENCHMARK(resizeButton)->Arg(64)->Arg(8000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlex
