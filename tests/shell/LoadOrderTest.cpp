#include <QLabel>
#include <QTest>
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

/// Writes down when a widget goes and comes.
class NotedVisibility : public QObject {
  public:
    NotedVisibility(QWidget& widget, const char* name, QStringList& notes)
        : name_(name), notes_(notes) {
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
    LoadOrderTest() { folder.put("scripts/next.script", "a\nb"); }

    /// `work` runs in the first yield of a load, or, when nested, in the one after it.
    void inAYield(std::function<void()> work) { QTimer::singleShot(0, &window(), std::move(work)); }
};

TEST_F(LoadOrderTest, GoesStepByStep) {
    QStringList notes;
    NotedPointer pointer(notes);
    start(pointer, {});
    NotedVisibility editorNotes(editor(), "editor", notes);
    NotedVisibility paneNotes(control<QLabel>("SB1_Pane1"), "pane", notes);
    editor().SetSelStart(8);
    const auto tell = [&](const char* what, const std::function<void()>& own) {
        return [&notes, this, what, own] {
            notes += what;
            if (document().EditorReady()) notes += "ready";
            own();
        };
    };
    pointer.expectFile(openDialog(), folder.path("scripts/next.script"), [&] {
        notes.clear();
        editor().onChange = tell("Change", editor().onChange);
        editor().onSelChange = tell("SelChange", editor().onSelChange);
        inAYield([&] {
            notes += "yield";
            inAYield([&] { notes += "yield"; });
        });
    });
    trigger("funOpen");
    EXPECT_EQ(notes.join(", ").toStdString(),
              "hourglass, editor hidden, pane hidden, yield, SelChange, Change, SelChange, Change, "
              "SelChange, arrow, editor shown, pane shown, yield");
    EXPECT_EQ(editor().Text(), "a\r\nb");
    EXPECT_EQ(control<QLabel>("SB1_Pane1").text(), "Line: 1");
    EXPECT_FALSE(pointer.busyPointer());
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

TEST_F(LoadOrderTest, WhatComesInAYieldWaitsOrDoesNothing) {
    start();
    open("scripts/next.script", [this] {
        editor().rtb().onFileDropped(folder.path("scripts/battery.script"));
        inAYield([this] {
            window().close();
            for (const char* name : {"funNew", "funOpen", "funSave", "funSaveAs"}) trigger(name);
        });
    });
    EXPECT_EQ(title(), "next.script - Brindlex");
    EXPECT_EQ(editor().Text(), "a\r\nb");
    EXPECT_EQ(folder.get("scripts/next.script"), "a\nb");
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return ends == 1; }));
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
    EXPECT_TRUE(document().Dirty());
    EXPECT_EQ(title(), "next.script - Brindlex*");
}

}  // namespace
}  // namespace brindlex
