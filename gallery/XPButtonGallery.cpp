// Shows the button control in all its forms. With a file name it writes a picture of each page
// ("NAME-1.png", ...) instead of a window. "--dark" shows them in a dark palette.

#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QPainter>
#include <QTabWidget>
#include <functional>

#include "system/QtDesktop.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

constexpr QSize kButtonSize(120, 32);

struct Shown {
    const char* name;
    XPButtonState state;
    bool enabled = true;
};

const Shown kStates[] = {
    {"hover", {XPButtonState::kOver, true}},
    {"pressed", {XPButtonState::kOver | XPButtonState::kDown, true}},
    {"default", {XPButtonState::kDefault}},
    {"disabled", {}, false},
};

const char* const kShapes[] = {"rectangle", "left slanted",  "right slanted", "both slanted",
                               "oval",      "oval, picture", "outlined oval", "custom"};

using SetUp = std::function<void(XPButton&)>;

/// Shows a button, which stays hidden, in a state that takes no pointer to get into.
class Still : public QWidget {
  public:
    Still(XPButton& button, const Shown& shown) : button_(button), state_(shown.state) {
        button.SetEnabled(shown.enabled);
        setFixedSize(button.size());
        setMask(button.frame().region.window);
        button.setParent(this);
        button.hide();
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        XPButtonFrame frame = button_.frame();
        frame.state = state_;
        PaintFrame(painter, frame);
    }

  private:
    XPButton& button_;
    XPButtonState state_;
};

/// A flower on white, as a toolbar image has it.
QImage picture() {
    QImage image(64, 64, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(32, 32);
    for (int petal = 0; petal < 6; ++petal) {
        painter.rotate(60);
        painter.setBrush(QColor::fromHsv(petal * 60, 160, 220));
        painter.drawEllipse(QPoint(0, 17), 8, 13);
    }
    painter.setBrush(Qt::yellow);
    painter.drawEllipse(QPoint(0, 0), 8, 8);
    return image;
}

/// One page: rows of buttons under headings.
class Page : public QWidget {
  public:
    explicit Page(Desktop& desktop) : desktop_(desktop), grid_(new QGridLayout(this)) {
        grid_->setSpacing(10);
    }
    void row(const QString& name) {
        grid_->addWidget(new QLabel(name), ++row_, 0);
        column_ = 0;
    }
    void live(const SetUp& setUp, const QSize& size = kButtonSize) { put(make(setUp, size)); }
    /// The same button in all states.
    void states(const SetUp& setUp, const QSize& size = kButtonSize) {
        live(setUp, size);
        for (const Shown& state : kStates) put(new Still(*make(setUp, size), state));
    }
    /// Over the rows of states.
    void heads() {
        row("");
        put(new QLabel("live"));
        for (const Shown& state : kStates) put(new QLabel(state.name));
    }

  private:
    XPButton* make(const SetUp& setUp, const QSize& size) {
        auto* const button = new XPButton(desktop_, this);
        button->resize(size);
        button->SetCaption("&Caption");
        setUp(*button);
        button->frame();
        button->setFixedSize(button->size());
        return button;
    }
    void put(QWidget* widget) { grid_->addWidget(widget, row_, ++column_, Qt::AlignCenter); }

    Desktop& desktop_;
    QGridLayout* grid_;
    int row_ = 0;
    int column_ = 0;
};

void fillShapes(Page& page) {
    page.heads();
    for (int shape = 0; shape <= kMaxButtonShape; ++shape) {
        page.row(kShapes[shape]);
        page.states([shape](XPButton& button) {
            if (shape >= kFirstShapeWithoutCaption)
                button.SetPicture(ButtonPicture::bitmap(picture()));
            button.SetButtonShape(shape);
        });
    }
}

void fillCaptions(Page& page) {
    page.heads();
    for (int style = 0; style <= kMaxCaptionStyle; ++style) {
        page.row(QStringList{"plain", "engraved", "raised"}.at(style));
        page.states([style](XPButton& button) { button.SetCaptionStyle(style); });
    }
    for (const int shape : {0, 3, 4}) {
        page.row(QStringLiteral("aligned, ") + kShapes[shape]);
        for (const char* text : {"&Caption", "Two||lines"})
            for (int align = 0; align <= kMaxCaptionAlign; ++align)
                page.live(
                    [=](XPButton& button) {
                        button.SetCaption(text);
                        button.SetButtonShape(shape);
                        button.SetCaptionAlign(align);
                    },
                    QSize(120, 40));
    }
    page.row("long");
    page.live([](XPButton& button) {
        button.SetCaption("A caption that has no room on one line, and none on two");
    });
}

void fillPictures(Page& page) {
    for (int size = 0; size <= kMaxPictureSize; ++size) {
        page.row(QStringLiteral("picture size %1").arg(size));
        for (int align = 0; align <= kMaxPictureAlign; ++align)
            page.live(
                [=](XPButton& button) {
                    button.SetPicture(ButtonPicture::bitmap(picture()));
                    button.SetPictureSize(size);
                    button.SetPictureAlign(align);
                },
                QSize(110, 64));
    }
    page.heads();
    page.row("states");
    page.states([](XPButton& button) {
        button.SetPicture(ButtonPicture::bitmap(picture()));
        button.SetPictureSize(1);
    });
    page.row("square, no caption");
    page.states(
        [](XPButton& button) {
            button.SetCaption({});
            button.SetPicture(ButtonPicture::bitmap(picture()));
            button.SetPictureSize(3);
        },
        QSize(33, 33));
}

void fillGradients(Page& page) {
    page.heads();
    for (int mode = 1; mode <= kMaxGradientMode; ++mode) {
        page.row(QStringLiteral("gradient %1").arg(mode));
        page.states([mode](XPButton& button) {
            button.SetGradientMode(mode);
            button.SetGradientColor(ColorValue(0xC08040));
        });
    }
    for (const int shape : {1, 4, 6}) {
        page.row(QStringLiteral("gradient 3, ") + kShapes[shape]);
        page.states([shape](XPButton& button) {
            button.SetButtonShape(shape);
            button.SetGradientMode(3);
            button.SetGradientColor(ColorValue(0x60B060));
            button.SetHoverBackColor(ColorValue(0x80C0F0));
        });
    }
    page.row("colours");
    page.states([](XPButton& button) {
        button.SetBackColor(ColorValue(0x905030));
        button.SetForeColor(ColorValue(0xFFFFFF));
        button.SetHoverForeColor(ColorValue(0x00FFFF));
    });
}

void makeDark() {
    QPalette palette(QColor(48, 50, 54), QColor(40, 42, 46));
    QApplication::setPalette(palette);
}

struct PageRow {
    const char* name;
    void (*fill)(Page&);
};

int show(QStringList arguments) {
    if (arguments.removeOne(QStringLiteral("--dark"))) makeDark();
    QtDesktop desktop;
    QTabWidget window;
    for (const PageRow& row :
         {PageRow{"Shapes", fillShapes}, PageRow{"Captions", fillCaptions},
          PageRow{"Pictures", fillPictures}, PageRow{"Gradients", fillGradients}}) {
        auto* const page = new Page(desktop);
        row.fill(*page);
        if (arguments.size() > 1) {
            const int number = window.count() + 1;
            const QString file = QStringLiteral("%1-%2.png").arg(arguments.at(1)).arg(number);
            if (!page->grab().save(file)) return 1;
        }
        window.addTab(page, row.name);
    }
    if (arguments.size() > 1) return 0;
    window.setMinimumSize(window.minimumSizeHint());
    window.show();
    return QApplication::exec();
}

}  // namespace
}  // namespace brindlex

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    return brindlex::show(QApplication::arguments());
}
