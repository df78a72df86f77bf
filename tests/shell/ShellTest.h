#pragma once

#include <QAction>
#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QFile>
#include <QMimeData>
#include <QTimer>
#include <QUrl>
#include <functional>
#include <optional>

#include "shell/Module1.h"
#include "shell/frmMain.h"
#include "support/FakeDesktop.h"
#include "support/SettingsTest.h"

namespace brindlex {

inline const MessageBox kPresetQuestion{
    "Are you sure you want to change the preset?\r\nWhile it is not extremely important, there is "
    "no option to reset it!",
    "Confirm", BoxIcon::Warning, BoxButtons::YesNo};

/// A run of the program with folders of its own: "program", "settings" and "scripts".
class ShellTest : public SettingsTest {
  protected:
    ShellTest() {
        folder.put("program/preset.txt", "preset\r\n");
        folder.put("program/Backups/keep", "");
        // the database that is built for the program
        const QString built = QCoreApplication::applicationDirPath() + "/../../brindlex/";
        QFile::link(built + "scriptref.mdb", folder.path("program/scriptref.mdb"));
        folder.put("scripts/battery.script", "spawn\r\n");
        folder.put("scripts/next.script", "next");
        folder.put("maps/battery.map", "");
        put("GetPreset", "1");
        put("AutoComplete", "0");
        put("AutoBlockIndent", "0");
        put("TypeOther", "0");
        put("WolfDir", folder.path("maps"));
    }

    void start(const QString& commandLine = {}) {
        program.emplace(Environment{desktop, settings, folder.path("program"), commandLine,
                                    [this] { ++ends; }});
        Main(*program);
    }
    void startNamed() { start(folder.path("scripts/battery.script")); }

    frmMain& window() { return program->mainWindow(); }
    Document& document() { return window().document(); }
    KELP_RTBSyntax& editor() { return window().KELP_RTBSyntax1(); }
    void type(std::string_view text) { editor().SetSelText(text); }
    std::string title() { return document().title().toStdString(); }
    template <typename Control = QWidget>
    Control& control(const char* name) {
        return *window().findChild<Control*>(name);
    }
    void trigger(const char* entry) { control<QAction>(entry).trigger(); }
    /// `meanwhile` runs while the dialog is open.
    void open(const std::string& name, std::function<void()> meanwhile = {}) {
        desktop.expectFile(openDialog(), folder.path(name), std::move(meanwhile));
        trigger("funOpen");
    }
    /// A script is dropped on a widget; the event loop opens it.
    void drop(QWidget& target, const std::string& name) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(folder.path(name))});
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&target, &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        drop.ignore();
        QCoreApplication::sendEvent(&target, &drop);
        EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
    }
    /// `work` runs in the first yield of a load, or, when nested, in the one after it.
    void inAYield(std::function<void()> work) { QTimer::singleShot(0, &window(), std::move(work)); }

    FileQuestion fileDialog(const QString& title, bool save) {
        const QStringList filters{"Script files (*.script)", "*.script", "All files (*.*)", "*.*"};
        return {title, folder.path("maps"), filters, save};
    }
    FileQuestion openDialog() { return fileDialog("Open script file", false); }
    FileQuestion saveDialog() { return fileDialog("Save script file", true); }
    static MessageBox saveQuestion(const QString& text, const QString& title = "Save?") {
        return {text, title, BoxIcon::Question, BoxButtons::YesNoCancel};
    }

    FakeDesktop desktop;
    std::optional<Program> program;
    int ends = 0;
};

}  // namespace brindlex
