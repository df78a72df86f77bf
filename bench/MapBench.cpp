#include <benchmark/benchmark.h>
#ifdef __linux__
#include <sys/resource.h>
#endif

#include <QFile>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <stdexcept>

#include "reference/EntityTree.h"
#include "reference/ImportMapEntities.h"
#include "reference/MapEntities.h"

namespace brindlex::bench {
namespace {

constexpr int kMapBytes = 100'000'000;

QByteArray brushes(int count) {
    QByteArray text;
    for (int brush = 0; brush < count; ++brush) {
        text += "// brush " + QByteArray::number(brush) + "\r\n{\r\n";
        for (int side = 0; side < 6; ++side)
            text += "( 2048 -320 64 ) ( 2048 192 64 ) ( 2048 192 0 ) stone/wall_c" +
                    QByteArray::number(brush * 7 + side) +
                    " 0 0 0 0.500000 0.500000 134217728 0 0\r\n";
        text += "}\r\n";
    }
    return text;
}

QByteArray entity(int number, const QByteArray& geometry) {
    const QByteArray digits = QByteArray::number(number);
    return "// entity " + digits + "\r\n{\r\n\"classname\" \"func_class" +
           QByteArray::number(number % 50) +
           "\"\r\n\"origin\" \"112 192 2016\"\r\n\"targetname\" \"name" + digits +
           "\"\r\n\"spawnflags\" \"1\"\r\n\"target\" \"name" + QByteArray::number(number + 1) +
           "\"\r\n" + geometry + "}\r\n";
}

/// A map of 100 MB, half of it the geometry of its first entity, the rest entities of 8 brushes.
class GeneratedMap {
  public:
    GeneratedMap() {
        QFile file(folder_.filePath(name()));
        if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no temporary file");
        const QByteArray some = brushes(8);
        file.write("// entity 0\r\n{\r\n\"classname\" \"worldspawn\"\r\n");
        while (file.pos() < kMapBytes / 2) file.write(some);
        file.write("}\r\n");
        for (int number = 1; file.pos() < kMapBytes; ++number) file.write(entity(number, some));
    }
    static QString name() { return QStringLiteral("bench.map"); }
    QString folder() const { return folder_.path(); }

  private:
    QTemporaryDir folder_;
};

/// The most memory that the process has had; 0 where the system does not say.
double peakMegabytes() {
#ifdef __linux__
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1e3;
#else
    return 0;
#endif
}

/// From the file to the filled tree. The peak counts if this runs alone.
void importMap(benchmark::State& state) {
    static const GeneratedMap map;
    QTreeWidget view;
    EntityTree tree(view, {});
    static const double before = peakMegabytes();
    for (auto _ : state)
        ImportMapEntities(map.folder(), map.name(), tree, [&state](const QString& message) {
            state.SkipWithError(message.toStdString().c_str());
        });
    state.counters["MB_peak"] = peakMegabytes() - before;
    state.SetBytesProcessed(state.iterations() * kMapBytes);
}
BENCHMARK(importMap)->Unit(benchmark::kMillisecond);

/// Replacing the records that a tree in sight shows, up to the painted tree.
void fillEntityTree(benchmark::State& state) {
    MapEntities entities;
    for (int i = 0; i < 50; ++i)
        entities.classes.push_back({"func_class" + QString::number(i), {}});
    for (int i = 0; i < state.range(0); ++i)
        entities.classes[static_cast<std::size_t>(i % 50)].records +=
            "targetname - name" + QString::number(i);
    QTreeWidget view;
    view.setUniformRowHeights(true);
    view.resize(220, 600);
    view.show();
    EntityTree tree(view, {});
    for (auto _ : state) {
        tree.fill(entities);
        view.grab();
    }
}
BENCHMARK(fillEntityTree)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlex::bench
