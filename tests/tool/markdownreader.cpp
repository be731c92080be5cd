#include "ORVMarkdownWriter.h"
#include "tooltest.h"

using rtftest::Story;

namespace {

enum Style { Bold = 1, Italic = 2, StrikeOut = 4, Link = 8 };

QTextCharFormat formatOf(int style)
{
    QTextCharFormat format;
    if (style & Bold)
        format.setFontWeight(QFont::Bold);
    format.setFontItalic(style & Italic);
    format.setFontStrikeOut(style & StrikeOut);
    if (style & Link) {
        format.setAnchor(true);
        format.setAnchorHref("https://example.org/"_s);
    }
    return format;
}

int styleOf(const QTextCharFormat& format)
{
    return (format.fontWeight() > QFont::Normal ? Bold : 0) | (format.fontItalic() ? Italic : 0)
        | (format.fontStrikeOut() ? StrikeOut : 0) | (format.anchorHref().isEmpty() ? 0 : Link);
}

// Ends each paragraph of a document, whatever a reader makes of it.
const QChar endMark = QChar(0x2603);

/*! The paragraphs of \a document: each character but white space, and behind it the number of its style. */
QStringList paragraphsOf(const QTextDocument& document)
{
    QStringList result;
    QString paragraph;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QString text = it.fragment().text();
            const QString style = QString::number(styleOf(it.fragment().charFormat()), 16);
            for (const QChar character : text) {
                if (character == endMark) {
                    result += paragraph;
                    paragraph.clear();
                } else if (!character.isSpace()) {
                    paragraph += character + style;
                }
            }
        }
    }
    result += paragraph;
    return result;
}

/*! Random text of what is markup in Markdown, in random formats: one paragraph. */
void addParagraph(Story* story, QRandomGenerator* random)
{
    static const char* const parts[] = {
        "*",      "_",    "`",       "[",     "]",      "(",    ")",     "<",   ">",      "#",
        "+",      "-",    ".",       "!",     "~",      "|",    "&",     ";",   ":",      "\\",
        "/",      "=",    "'",       "\"",    "1",      "a",    "b",     " ",   "é",      "中",
        "€",      "1. ",  "2) ",     "- ",    "# ",     "> ",   "***",   "---", "===",    "&amp;",
        "&#35;",  "<b>",  "](",      "![",    "[^1]: ", "~~",   "| - |", "  ",  "\u2028", "``",
        "\u00a0", "www.", "http://", "</td>", "<!--",   "\\\\", "text",  "```", "* * *",  "\t"};
    const int partCount = int(sizeof(parts) / sizeof(parts[0]));
    static const int styles[] = {
        0, 0, 0, Bold, Italic, StrikeOut, Bold | Italic, Bold | StrikeOut, Link, Link | Bold};
    const int styleCount = int(sizeof(styles) / sizeof(styles[0]));
    for (int run = random->bounded(1, 7); run > 0; --run) {
        const QTextCharFormat format = formatOf(styles[random->bounded(styleCount)]);
        for (int part = random->bounded(1, 5); part > 0; --part)
            story->add(QString::fromUtf8(parts[random->bounded(partCount)]), format);
    }
    story->add(QString(endMark));
}

QByteArray markdown(const QTextDocument& document)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return ORVMarkdownWriter(&buffer).write(&document) ? buffer.data() : QByteArray();
}

/*! \a markdown as pandoc reads it, as the HTML that Qt reads. */
QByteArray readByPandoc(const QByteArray& markdown, const QString& format)
{
    QProcess process;
    process.start("pandoc"_s, QStringList{"-f"_s, format, "-t"_s, "html"_s, "--wrap=preserve"_s});
    process.write(markdown);
    process.closeWriteChannel();
    if (!process.waitForFinished(120000) || process.exitCode() != 0)
        return "pandoc failed";
    return process.readAllStandardOutput().replace("<del>", "<s>").replace("</del>", "</s>");
}

} // namespace

/*! What a reader of Markdown makes of what the library writes. */
class TestToolMarkdownReader : public QObject {
    Q_OBJECT

private slots:
    /*! Whatever the text is, it comes back, with its formats. */
    ORV_ROWS(randomText)
    {
        const Rows add([](int seed, const QString& format) {
            QRandomGenerator random{quint32(seed)};
            Story story;
            for (int i = 0; i < 500; ++i) {
                addParagraph(&story, &random);
                story.paragraph();
            }
            QTextDocument document;
            document.setHtml(QString::fromUtf8(readByPandoc(markdown(*story.document()), format)));
            QCOMPARE(paragraphsOf(document), paragraphsOf(*story.document()));
        });
        // Without what is no part of the format, and the links that text becomes.
        const char* const github = "gfm-emoji-autolink_bare_uris";
        const char* const common = "commonmark+strikeout";
        for (int seed = 1; seed <= 4; ++seed) {
            add("GitHub " + QByteArray::number(seed), seed, github);
            add("CommonMark " + QByteArray::number(seed), seed, common);
        }
    }
};

ORV_TEST_WITH("pandoc", "tool_markdownreader", TestToolMarkdownReader, QGuiApplication)
#include "markdownreader.moc"
