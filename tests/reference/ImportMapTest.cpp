#include <sys/stat.h>

#include <QTreeWidget>

#include "reference/EntityTree.h"
#include "reference/ImportMapEntities.h"
#include "reference/MapEntities.h"
#include "support/TempFolder.h"
#include "system/CodePage.h"
#include "text/Random.h"

namespace brindlex {
namespace {

/// A class a line, each record in the line below it, indented by a blank.
std::string textOf(const QTreeWidget& view) {
    QString text;
    for (int i = 0; i < view.topLevelItemCount(); ++i) {
        const QTreeWidgetItem* const root = view.topLevelItem(i);
        text += root->text(0) + '\n';
        for (int j = 0; j < root->childCount(); ++j) text += ' ' + root->child(j)->text(0) + '\n';
    }
    return text.toStdString();
}

/// The tree for a map that is read in pieces of so many bytes.
std::string import(const std::string& map, std::size_t pieceSize = std::string::npos) {
    static const CodePage page = CodePage::windows(1252);
    MapReader reader(page);
    for (std::size_t at = 0; at < map.size();) {
        const std::string piece = map.substr(at, pieceSize);  // so that reading past it is found
        reader.take(piece);
        at += piece.size();
    }
    QTreeWidget view;
    EntityTree(view, {}).fill(reader.finish());
    return textOf(view);
}

/// '|' stands for the line end, ' for a double quote.
std::string mapOf(const std::string& text, const char* lineEnd = "\n") {
    return QByteArray::fromStdString(text).replace('\'', '"').replace('|', lineEnd).toStdString();
}

struct Case {
    const char* name;
    std::string map;
    std::string tree;
};
using namespace std::string_literals;
const Case kCases[] = {
    {"other keys between, geometry, a second entity of the class, its name last",
     "// entity 1|{|'classname' 'door'|'origin' '1 2'|'targetname' 'a'|'scriptname' 'b'|// brush 0|"
     "{|( 1 2 3 ) common/caulk|}|}|// entity 2|{|'classname' 'light'|'target' 'c - d'|}|"
     "// entity 3|{|'target' ''|'classname' 'door'|}|",
     "door| targetname - a| scriptname - b| target - |light| target - c - d|"},
    {"lone records; no classname, also behind an entity that has one; no line end at the end",
     "// entity 1|{|'classname' 'x'|}|// entity 2|{|'target' 'a'|}|"
     "// entity 3|{|'target' 'b'|'targetname' 'c'|}|// entity 4|{|'classname' 'y'|'target' 'd'|}|"
     "// entity 5|{|'target' 'e'|'target' 'f'|}",
     "(no classname)| target - b| targetname - c| target - e| target - f|y| target - d|"},
    {"no markers: indented, in place of the brace, of the first key line, at the end of a run",
     " // entity 1|{|'target' 'a'|'target' 'a'|}|// entity 1|// entity 2|// entity 3|"
     "'target' 'b'|'target' 'b'|// entity 4|{|'target' 'c'|// entity 5|{|'target' 'd'|'target' 'd'|"
     "}|",
     ""},
    {"no key lines: too few quotes, another case, indented, behind the end of the run",
     "// entity 1|{|'classname' 'x'|'target' 'a|'target|'target' b|'Target' 'c'|'targets' 'd'e'|"
     " 'target' 'f'|'target' 'g'|}|",
     "x| targets - d|"},
    {"a longer key that names a class; two names in one entity",
     "// entity 1|{|'classname2' 'x'|'target' 'a'|}|"
     "// entity 2|{|'target' 'b'|'classname' 'y'|'target' 'c'|'classname' 'z'|}|",
     " x| target - a|y| target - b| target - c|z|"},
    {"neighbours of one number are one entity, though one without records stands between them",
     "// entity 7|{|'classname' 'x'|}|// entity 8|{|}|// entity 07|{|'target' 'a'|}|"
     "// entity 99999999999999999998|{|'target' 'b'|}|"
     "// entity 99999999999999999999|{|'classname' 'y'|}|"
     "// entity 3|{|'target' 'c'|'classname' 'z'|}|// entity 3|{|'target' 'd'|'classname' 'x'|}|",
     "x| target - a| target - d|z| target - c|"},
    {"the text ends inside an entity",
     "// entity 1|{|'classname' 'x'|'target' 'a'|}|// entity 2|{|'classname' 'y'|'target' 'b'|",
     "x| target - a|"},
    {"NUL, the code page, long lines",
     "(" + std::string(9999, 'x') + "|// entity 1|{|'classname' '\xE9\x80'|'target' '\0'|'x' '"s +
         std::string(9999, 'x') + "'|}|",
     "\xC3\xA9\xE2\x82\xAC| target - \0|"s},
};

TEST(MapReaderTest, GivesTheEntitiesByClassHoweverTheTextIsCut) {
    for (const Case& row : kCases) {
        for (const char* lineEnd : {"\n", "\r\n"}) {
            EXPECT_EQ(import(mapOf(row.map, lineEnd)), mapOf(row.tree)) << row.name;
            EXPECT_EQ(import(mapOf(row.map, lineEnd), 1), mapOf(row.tree)) << row.name << ", cut";
        }
    }
}

TEST(MapReaderTest, AnyBytesEndInTheSameTreeHoweverTheyAreCut) {
    const std::vector<std::string> words{"// entity ",    "\n", "|{|", "'", "'target' '",
                                         "'classname' '", "'|", "\r|", "7", test::allBytes()};
    for (const std::uint64_t seed : test::seeds(20)) {
        test::Random random(seed);
        std::string map;
        for (int i = 0; i < 2000; ++i) map += mapOf(words[random.below(words.size())]);
        for (const std::size_t size : {1, 7}) EXPECT_EQ(import(map, size), import(map)) << seed;
    }
}

class EntityTreeTest : public testing::Test {
  protected:
    void import(const QString& WolfDir, const QString& MapName) {
        ImportMapEntities(WolfDir, MapName, tree, [this](const QString& text) { error = text; });
    }
    QPoint placeOf(const QTreeWidgetItem* node) { return view.visualItemRect(node).center(); }
    void click(QPoint place) { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, place); }
    void doubleClick(QPoint place, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view.viewport(), button, {}, place);
        QTest::mouseDClick(view.viewport(), button, {}, place);
    }
    std::string taken() { return std::exchange(inserted, {}).join('|').toStdString(); }

    TempFolder folder;
    QTreeWidget view;
    QStringList inserted;
    QString error;
    EntityTree tree{view, [this](const QString& value) { inserted += '<' + value + '>'; }};
};

TEST_F(EntityTreeTest, AMapThatCannotBeReadGivesAMessageAndAnEmptyTree) {
    const std::string notFound =
        "Map file 'a.map' not found. Could not import entity scriptnames/targetnames.";
    const std::string unreadable = "Unknown error involving the script or map file.";
    folder.put("maps/good.map", mapOf(kCases[0].map));
    folder.put("folder/a.map/in the way", "");
    folder.put("large/a.map", "");
    std::filesystem::resize_file(folder.at("large/a.map"), (1ull << 30) + 1);
    std::filesystem::create_directory(folder.at("pipe"));
    ASSERT_EQ(mkfifo(folder.at("pipe/a.map").c_str(), 0600), 0);
    for (const char* place : {"maps", "nowhere", "folder", "large", "pipe"}) {
        import(folder.path("maps") + "\\", "GOOD.map");
        EXPECT_EQ(textOf(view) + error.toStdString(), mapOf(kCases[0].tree));
        import(folder.path(place), "a.map");
        const bool isThere = std::filesystem::exists(folder.at(place) / "a.map");
        EXPECT_EQ(error.toStdString(), isThere ? unreadable : notFound) << place;
        EXPECT_EQ(textOf(view), "");
        error.clear();
    }
    import("", "a.map");
    EXPECT_EQ(error.toStdString(), notFound);
}

TEST_F(EntityTreeTest, TheUserPicksTheValueOfARecord) {
    tree.fill({{{"door", {"targetname - a", "target - b - c", "target - "}}, {"x", {}}}});
    view.resize(300, 300);
    view.show();
    const QTreeWidgetItem* const door = view.topLevelItem(0);
    doubleClick(placeOf(door));
    EXPECT_TRUE(door->isExpanded());
    doubleClick(placeOf(view.topLevelItem(1)));
    const QPoint record = placeOf(door->child(0));
    click(record);
    click({100, 290});
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, record);
    doubleClick(record, Qt::RightButton);
    doubleClick({view.visualItemRect(door).left() - 8, placeOf(door).y()});
    EXPECT_EQ(taken(), "") << "class, from outside, one click, another button, the class's sign";
    view.expandAll();
    for (int i = 0; i < 3; ++i) doubleClick(placeOf(door->child(i)));
    EXPECT_EQ(taken(), "<a>|<b - c>|<>");
    QTest::keyClick(&view, Qt::Key_Home);
    QTest::keyClick(&view, Qt::Key_Return);
    QTest::keyClicks(&view, "target -");
    QTest::keyClick(&view, Qt::Key_Enter);
    EXPECT_EQ(taken(), "<b - c>") << "typed letters lead to the record that begins with them";
}

}  // namespace
}  // namespace brindlex
