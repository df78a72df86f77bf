#include <QLabel>

#include "shell/ShellTest.h"

namespace brindlex {
namespace {

/// Tells when a widget goes and comes.
class NotedVisibility : public QObject {
  public:
    NotedVisibility(QWidget& widget, std::function<void(const char*)> note)
        : note_(std::move(note)) {
        widget.installEventFilter(this);
    }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Hide) note_("hidden");
        if (event->type() == QEvent::Show) note_("shown");
        return false;
    }

  private:
    std::function<void(const char*)> note_;
};

class LoadOrderTest : public ShellTest {
  protected:
    LoadOrderTest() { folder.put("scripts/next.script", "a\nb"); }
};

TEST_F(LoadOrderTest, GoesStepByStep) {
    start();
    QStringList notes;
    const auto note = [&](const QString& what) {
        notes += what + (desktop.busyPointer() ? " busy" : "") +
                 (document().EditorReady() ? " ready" : "");
    };
    NotedVisibility editorNotes(editor(), [&](auto what) { note(QString("editor ") + what); });
    NotedVisibility paneNotes(control("SB1_Pane1"),
                              [&](auto what) { note(QString("pane ") + what); });
    editor().SetSelStart(8);
    open("scripts/next.script", [&] {
        notes.clear();
        editor().onChange = [&, own = editor().onChange] {
            note("Change");
            own();
        };
        editor().onSelChange = [&, own = editor().onSelChange] {
            note("SelChange");
            own();
        };
        inAYield([&] {
            note("yield");
            inAYield([&] { note("yield"); });
        });
    });
    EXPECT_EQ(notes.join(", ").toStdString(),
              "editor hidden busy, pane hidden busy, yield busy, SelChange busy, Change busy, "
              "SelChange busy, Change busy, SelChange busy, editor shown ready, pane shown ready, "
              "yield ready");
    EXPECT_EQ(editor().Text(), "a\r\nb");
    EXPECT_EQ(control<QLabel>("SB1_Pane1").text(), "Line: 1");
}

TEST_F(LoadOrderTest, GivesTheFocusBack) {
    start();
    QCoreApplication::processEvents();
    for (QWidget* focus : {static_cast<QWidget*>(&editor().rtb()), &control("txtError")}) {
        focus->setFocus();
        trigger("funNew");
        EXPECT_EQ(window().focusWidget(), focus);
    }
}

TEST_F(LoadOrderTest, AnEditInTheLastYieldIsUnsaved) {
    start();
    type("early");
    type("er");
    desktop.expectBox(saveQuestion("Do you want to save Untitled"), BoxAnswer::No);
    open("scripts/next.script", [this] {
        inAYield([this] {
            inAYield([this] {
                window().Undo();
                type("late ");
            });
        });
    });
    EXPECT_EQ(editor().Text(), "late a\r\nb");
    EXPECT_EQ(title(), "next.script - Brindlex*");
}

}  // namespace
}  // namespace brindlex
