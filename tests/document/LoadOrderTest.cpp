#include <QLabel>

#include "shell/ShellTest.h"

namespace brindlex {
namespace {

/// Notes what happens, and how the pointer and the document stand then.
class LoadOrderTest : public ShellTest, public QObject {
  protected:
    LoadOrderTest() { folder.put("scripts/next.script", "a\nb"); }
    void note(const QString& what) {
        notes += what + (desktop.busyPointer() ? " busy" : "") +
                 (document().EditorReady() ? " ready" : "");
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Hide) note(watched->objectName() + " hidden");
        if (event->type() == QEvent::Show) note(watched->objectName() + " shown");
        return false;
    }

    QStringList notes;
};

TEST_F(LoadOrderTest, GoesStepByStep) {
    start();
    editor().SetSelStart(8);
    open("scripts/next.script", [this] {
        editor().installEventFilter(this);
        control("SB1_Pane1").installEventFilter(this);
        editor().onChange = [this] { note("Change"); };
        editor().onSelChange = [this, own = editor().onSelChange] {
            note("SelChange");
            own();
        };
        inAYield([this] {
            note("yield");
            inAYield([this] { note("yield"); });
        });
    });
    EXPECT_EQ(notes.join(", ").toStdString(),
              "KELP_RTBSyntax1 hidden busy, SB1_Pane1 hidden busy, yield busy, SelChange busy, "
              "Change busy, SelChange busy, Change busy, SelChange busy, "
              "KELP_RTBSyntax1 shown ready, SB1_Pane1 shown ready, yield ready");
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

TEST_F(LoadOrderTest, ALoadIsNoStepAndAnEditInItsLastYieldIsUnsaved) {
    start();
    for (const char* early : {"a", "b", "c"}) type(early);
    window().Undo();
    desktop.expectBox(saveQuestion("Do you want to save Untitled"), BoxAnswer::No);
    open("scripts/next.script", [this] {
        inAYield([this] {
            inAYield([this] {
                window().Undo();
                window().Redo();
                type("late ");
            });
        });
    });
    EXPECT_EQ(editor().Text(), "late a\r\nb");
    EXPECT_EQ(title(), "next.script - Brindlex*");
}

}  // namespace
}  // namespace brindlex
