#include "bench/ToolkitEditor.h"

#include <QFontDatabase>
#include <QHash>
#include <QSyntaxHighlighter>

#include "editor/ScriptSyntax.h"

namespace brindlex::bench {
namespace {

class Highlighter : public QSyntaxHighlighter {
  public:
    explicit Highlighter(QTextDocument* document) : QSyntaxHighlighter(document) {
        for (const std::string& word : scriptKeywords())
            words_.insert(QString::fromStdString(word), QColor(0, 0, 128));
        for (const char* word : {"bitset", "inc", "set", "abort_if_equal", "abort_if_not_equal"})
            words_.insert(QLatin1String(word), QColor(255, 0, 255));
    }

  protected:
    void highlightBlock(const QString& line) override {
        qsizetype at = 0;
        while (at < line.size()) at = token(line, at);
    }

  private:
    qsizetype token(const QString& line, qsizetype begin) {
        const QChar first = line[begin];
        if (QStringView(line).mid(begin).startsWith(u"//"))
            return paint(begin, line.size(), QColor(0, 128, 0));
        if (first == u'"') {
            const qsizetype close = line.indexOf(u'"', begin + 1);
            return paint(begin, close < 0 ? line.size() : close + 1, QColor(192, 0, 0));
        }
        if (first == u' ' || first == u'\t') return begin + 1;
        qsizetype end = begin;
        while (end < line.size() && !isBreak(line, end)) ++end;
        const auto found = words_.constFind(line.mid(begin, end - begin).toLower());
        if (found != words_.constEnd()) paint(begin, end, *found);
        return end;
    }

    static bool isBreak(const QString& line, qsizetype at) {
        const QChar c = line[at];
        return c == u' ' || c == u'\t' || c == u'"' ||
               (c == u'/' && at + 1 < line.size() && line[at + 1] == u'/');
    }

    qsizetype paint(qsizetype begin, qsizetype end, const QColor& color) {
        setFormat(static_cast<int>(begin), static_cast<int>(end - begin), color);
        return end;
    }

    QHash<QString, QColor> words_;
};

}  // namespace

std::unique_ptr<QPlainTextEdit> makeToolkitEditor() {
    auto editor = std::make_unique<QPlainTextEdit>();
    editor->setLineWrapMode(QPlainTextEdit::NoWrap);
    editor->setUndoRedoEnabled(false);
    editor->setFont(QFont("Courier New", 10));
    editor->resize(1400, 900);
    new Highlighter(editor->document());
    return editor;
}

}  // namespace brindlex::bench
