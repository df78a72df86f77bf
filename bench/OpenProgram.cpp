#include "bench/OpenProgram.h"

#include <QApplication>
#include <cstdlib>
#include <fstream>

#include "bench/ScriptGenerator.h"

namespace brindlex::bench {

OpenProgram::OpenProgram(std::size_t scriptBytes) {
    const std::string text = generateScript(scriptBytes);
    scriptBytes_ = text.size();
    std::ofstream file(folder_.filePath(QStringLiteral("bench.script")).toStdString(),
                       std::ios::binary);
    if (!(file << text).flush()) std::abort();
    program_ =
        std::make_unique<Program>(Surroundings{desktop_, settings_, folder_.path(), {}, [] {}});
    Main(*program_);
    QApplication::processEvents();
}

}  // namespace brindlex::bench
