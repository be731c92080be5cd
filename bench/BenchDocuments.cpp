#include "BenchDocuments.h"

#include <QtGui/QTextBlockFormat>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>

#include <random>

namespace {

const char* const words[] = {"harbour", "quiet",     "letter",   "morning", "station", "carried",
                             "window",  "answered",  "ordinary", "lantern", "bridge",  "forgot",
                             "kitchen", "passenger", "river",    "slowly"};

QString sentence(std::mt19937& random, int count)
{
    QStringList result;
    for (int i = 0; i < count; ++i)
        result << QLatin1String(words[random() % (sizeof(words) / sizeof(words[0]))]);
    return result.join(QLatin1Char(' '));
}

const char header[] = "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0"
                      "{\\fonttbl{\\f0\\froman\\fcharset0\\fprq2 Bench Serif;}}\n"
                      "{\\colortbl;\\red0\\green0\\blue0;}\n";

} // namespace

QList<BenchDocuments::Paragraph> BenchDocuments::prose(int count)
{
    std::mt19937 random(1);
    QList<Paragraph> paragraphs;
    for (int i = 0; i < count; ++i)
        paragraphs.append({sentence(random, 9) + QLatin1Char(' '), sentence(random, 3),
                           QLatin1Char(' ') + sentence(random, 9)});
    return paragraphs;
}

QByteArray BenchDocuments::proseRtf(const QList<Paragraph>& paragraphs)
{
    QByteArray rtf = header;
    for (const Paragraph& paragraph : paragraphs) {
        rtf += "\\pard\\plain\\f0\\fs24 " + paragraph.before.toLatin1() + "{\\b " + paragraph.bold.toLatin1()
            + '}' + paragraph.after.toLatin1() + "\\par\n";
    }
    return rtf + '}';
}

void BenchDocuments::buildProse(QTextDocument* document, const QList<Paragraph>& paragraphs)
{
    QTextCharFormat plain;
    plain.setProperty(QTextFormat::FontFamily, QLatin1String("Bench Serif"));
    plain.setFontPointSize(12);
    QTextCharFormat bold(plain);
    bold.setFontWeight(QFont::Bold);
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (const Paragraph& paragraph : paragraphs) {
        cursor.setBlockCharFormat(plain);
        cursor.setBlockFormat(QTextBlockFormat());
        cursor.insertText(paragraph.before, plain);
        cursor.insertText(paragraph.bold, bold);
        cursor.insertText(paragraph.after, plain);
        cursor.insertBlock();
    }
    cursor.endEditBlock();
}

QByteArray BenchDocuments::tableRtf(int rows, bool merged)
{
    QByteArray rtf = header;
    for (int row = 0; row < rows; ++row) {
        rtf += "\\trowd\\trgaph108";
        for (int column = 0; column < 5; ++column) {
            if (merged && column == 0)
                rtf += row == 0 ? "\\clvmgf" : "\\clvmrg";
            rtf += "\\cellx" + QByteArray::number(1700 * (column + 1));
        }
        rtf += "\\pard\\plain\\intbl\\f0\\fs24 ";
        for (int column = 0; column < 5; ++column)
            rtf += "row " + QByteArray::number(row) + " column " + QByteArray::number(column) + "\\cell ";
        rtf += "\\row\n";
    }
    return rtf + "\\pard\\plain end\\par}";
}

QByteArray BenchDocuments::listRtf(int items)
{
    QByteArray rtf = header;
    rtf += "{\\*\\listtable{\\list\\listtemplateid1\\listhybrid{\\listlevel\\levelnfc0\\levelnfcn0"
           "{\\leveltext\\'02\\'00.;}{\\levelnumbers\\'01;}\\fi-360\\li720}\\listid1}}"
           "{\\*\\listoverridetable{\\listoverride\\listid1\\listoverridecount0\\ls1}}\n";
    for (int i = 0; i < items; ++i)
        rtf += "\\pard\\plain\\ls1\\ilvl0\\fi-360\\li720\\f0\\fs24 item " + QByteArray::number(i) + "\\par\n";
    return rtf + '}';
}

QByteArray BenchDocuments::plainListRtf(int items)
{
    return listRtf(items).replace("\\ls1\\ilvl0\\fi", "\\fi");
}
