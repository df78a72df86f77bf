#include "bench/OpenProgram.h"

#include <QApplication>
#include <QFile>
#include <cstdlib>
#include <fstream>
#include <string>

#include "bench/ScriptGenerator.h"

namespace brindlex::bench {

OpenProgram::OpenProgram(std::size_t scriptBytes) {
    const std::string text = generateScript(scriptBytes);
    scriptBytes_ = text.size();
    std::ofstream file(folder_.filePath(QStringLiteral("bench.script")).toStdString(),
                       std::ios::binary);
    if (!(file << text).flush()) std::abort();
    const QString built = QCoreApplication::applicationDirPath() + "/../brindlex/scriptref.mdb";
    QFile::link(built, folder_.filePath(QStringLiteral("scriptref.mdb")));
    program_ = std::make_unique<Program>(Environment{.desktop = desktop_,
                                                     .settings = settings_,
                                                     .programFolder = folder_.path(),
                                                     .commandLine = {},
                                                     .endProgram = [] {}});
    Main(*program_);
    state().AutoCompleteEnabled = false;
    // an empty map that belongs to the script
    state().WolfDir = folder_.path();
    std::ofstream(folder_.filePath(QStringLiteral("bench.map")).toStdString());
    QApplication::processEvents();
}

}  // namespace brindlex::bench
