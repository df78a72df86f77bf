#include <QLabel>
#include <QTimer>

#include "ShellTest.h"

namespace brindlex {
namespace {

/// A desktop that writes down when the pointer changes.
class NotedPointer : public FakeDesktop {
  public:
    explicit NotedPointer(QStringList& notes) : notes_(notes) {}
    void setBusyPointer(bool busy) override {
        notes_ += busy ? "hourglass" : "arrow";
        FakeDesktop::setBusyPointer(busy);
    }

  private:
    QStringList& notes_;
};

/// Writes down when a widget goes and comes, and with `yields` what the event loop gets to do
/// while it is away.
class NotedVisibility : public QObject {
  public:
    NotedVisibility(QWidget& widget, QString name, QStringList& notes)
        : name_(std::move(name)), notes_(notes) {
        widget.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide) notes_ += name_ + " hidden";
        if (event->type() == QEvent::Show) notes_ += name_ + " shown";
        return false;
    }

  private:
    QString name_;
    QStringList& notes_;
};

class LoadOrderTest : public ShellTest {
  protected:
    /// From now on everything that a load does is written down.
    void note() {
        notes.clear();
        const auto tell = [this](const char* what, const std::function<void()>& own) {
            return [this, what, own] {
                notes += what;
                if (document().EditorReady()) notes += "ready";
                own();
            };
        };
        editor().onChange = tell("Change", editor().onChange);
        editor().onSelChange = tell("SelChange", editor().onSelChange);
        yieldSoon();
    }
    void yieldSoon() {
        QTimer::singleShot(0, &window(), [this] {
            notes += "yield";
            if (++yields == 1) QTimer::singleShot(0, &window(), [this] { notes += "yield"; });
        });
    }

    QStringList notes;
    int yields = 0;
    NotedPointer pointer{notes};
};

TEST_F(LoadOrderTest, GoesStepByStep) {
    folder.put("scripts/next.script", "a\nb");
    start(pointer, {});
    NotedVisibility editorNotes(editor(), "editor", notes);
    NotedVisibility paneNotes(control<QLabel>("SB1_Pane1"), "pane", notes);
    editor().SetSelStart(8);
    pointer.expectFile(openDialog(), folder.path("scripts/next.script"), [this] { note(); });
    trigger("funOpen");
    EXPECT_EQ(notes.join(", ").toStdString(),
              "hourglass, editor hidden, pane hidden, yield, SelChange, Change, Change, arrow, "
              "editor shown, pane shown, yield");
    EXPECT_EQ(editor().Text(), "a\r\nb");
    EXPECT_EQ(control<QLabel>("SB1_Pane1").text(), "Line: 1");
    EXPECT_EQ(title(), "next.script - Brindlex");
    EXPECT_FALSE(pointer.busyPointer());
}

TEST_F(LoadOrderTest, GivesTheFocusBack) {
    start();
    QCoreApplication::processEvents();
    EXPECT_EQ(window().focusWidget(), &editor().rtb());
    trigger("funNew");
    EXPECT_EQ(window().focusWidget(), &editor().rtb());
    QWidget& errors = control("txtError");
    errors.setFocus();
    trigger("funNew");
    EXPECT_EQ(window().focusWidget(), &errors);
}

TEST_F(LoadOrderTest, AWindowClosedInAYieldEndsTheProgramAndLoadsNoMore) {
    start();
    folder.put("scripts/next.script", "next");
    desktop.expectFile(openDialog(), folder.path("scripts/next.script"),
                       [this] { QTimer::singleShot(0, &window(), [this] { window().close(); }); });
    trigger("funOpen");
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(editor().Text(), "preset\r\n");
    EXPECT_FALSE(desktop.busyPointer());
}

TEST_F(LoadOrderTest, AFileDroppedInAYieldDoesNotLoadIntoALoad) {
    start();
    folder.put("scripts/next.script", "next");
    desktop.expectFile(openDialog(), folder.path("scripts/next.script"), [this] {
        editor().rtb().onFileDropped(folder.path("scripts/battery.script"));
    });
    trigger("funOpen");
    QCoreApplication::processEvents();
    EXPECT_EQ(editor().Text(), "next");
    EXPECT_EQ(title(), "next.script - Brindlex");
}

}  // namespace
}  // namespace brindlex
