#include "BenchDocuments.h"

#include <QtCore/QBuffer>
#include <QtGui/QImage>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>

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

QImage noise(int width, int height)
{
    std::mt19937 random(3);
    QImage image(width, height, QImage::Format_ARGB32);
    for (int y = 0; y < height; ++y) {
        QRgb* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            line[x] = random();
    }
    return image;
}

QByteArray encoded(const QImage& image, const char* type, int quality)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, type, quality);
    return data;
}

QByteArray escaped(unsigned byte)
{
    return "\\'" + QByteArray::number(byte, 16);
}

/*! Paragraphs of \a count characters that \a character makes, in a font of the character set \a charset. */
template <typename Character>
QByteArray escapedRtf(int count, int codePage, int charset, Character character)
{
    const int paragraph = 400;
    std::mt19937 random{1};
    QByteArray rtf = "{\\rtf1\\ansi\\ansicpg" + QByteArray::number(codePage) + "{\\fonttbl{\\f0\\fcharset"
        + QByteArray::number(charset) + " Serif;}}\n";
    for (int i = 0; i < count; ++i) {
        if (i % paragraph == 0)
            rtf += i == 0 ? "\\pard\\plain\\f0\\fs24 " : "\\par\n\\pard\\plain\\f0\\fs24 ";
        rtf += i % 7 == 6 ? QByteArray(" ") : character(random);
    }
    return rtf + "}";
}

} // namespace

BenchDocuments::Paragraph BenchDocuments::Prose::next()
{
    return {sentence(m_random, 9) + QLatin1Char(' '), sentence(m_random, 3),
            QLatin1Char(' ') + sentence(m_random, 9)};
}

QList<BenchDocuments::Paragraph> BenchDocuments::prose(int count)
{
    Prose source;
    QList<Paragraph> paragraphs;
    for (int i = 0; i < count; ++i)
        paragraphs.append(source.next());
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

BenchDocuments::ProseBuilder::ProseBuilder(QTextDocument* document) : m_cursor(document)
{
    m_plain.setProperty(QTextFormat::FontFamily, QLatin1String("Bench Serif"));
    m_plain.setFontPointSize(12);
    m_bold = m_plain;
    m_bold.setFontWeight(QFont::Bold);
    document->setUndoRedoEnabled(false);
    m_cursor.beginEditBlock();
    m_cursor.setBlockCharFormat(m_plain);
}

BenchDocuments::ProseBuilder::~ProseBuilder()
{
    m_cursor.endEditBlock();
}

void BenchDocuments::ProseBuilder::add(const Paragraph& paragraph)
{
    m_cursor.insertText(paragraph.before, m_plain);
    m_cursor.insertText(paragraph.bold, m_bold);
    m_cursor.insertText(paragraph.after, m_plain);
    m_cursor.insertBlock(QTextBlockFormat(), m_plain);
}

QByteArray BenchDocuments::novelRtf(int paragraphs)
{
    std::mt19937 random(2);
    QByteArray rtf = header;
    for (int i = 0; i < paragraphs; ++i) {
        rtf +=
            "\\pard\\plain \\s33\\rtlch\\af5\\afs24\\alang1081 \\ltrch\\lang1033\\langfe2052\\hich\\af3\\loch"
            "\\sb86\\sa86\\ql\\sb86\\sa86\\ltrpar{\\rtlch\\af5\\ltrch\\loch\n";
        rtf += sentence(random, 20).toLatin1() + " Ren\\u233\\'e9e \\u8212\\'97 "
            + sentence(random, 8).toLatin1();
        rtf += "}{\\rtlch\\af5\\ai \\ltrch\\hich\\af3\\loch\\i\\f0\\fs24\\dbch\\af5\n";
        rtf += sentence(random, 4).toLatin1() + "}{\\rtlch\\af5 \\ltrch\\loch\n";
        rtf += "It\\u8217\\'92s " + sentence(random, 30).toLatin1() + "}\n\\par ";
    }
    return rtf + '}';
}

BenchDocuments::Copy::Copy(const QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        Block copy{block.blockFormat(), block.charFormat(), {}};
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
            copy.runs.append({it.fragment().text(), it.fragment().charFormat()});
        m_blocks.append(copy);
    }
}

void BenchDocuments::Copy::build(QTextDocument* document) const
{
    document->setUndoRedoEnabled(false);
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (const Block& block : m_blocks) {
        cursor.insertBlock(block.format, block.charFormat);
        for (const Run& run : block.runs)
            cursor.insertText(run.text, run.format);
    }
    cursor.endEditBlock();
}

QByteArray BenchDocuments::noisePng(int megabytes)
{
    const int width = 1000;
    return encoded(noise(width, megabytes * (1 << 20) / (width * 4)), "PNG", 100);
}

QByteArray BenchDocuments::noiseJpeg(int side)
{
    return encoded(noise(side, side), "JPEG", 90);
}

QByteArray BenchDocuments::pictureRtf(const QByteArray& picture, const char* type)
{
    const QByteArray hexadecimal = picture.toHex();
    QByteArray rtf = header + QByteArray("\\pard\\plain{\\pict\\picwgoal2000\\pichgoal2000\\") + type + '\n';
    const int lineLength = 128;
    for (int i = 0; i < hexadecimal.size(); i += lineLength)
        rtf += hexadecimal.mid(i, lineLength) + '\n';
    return rtf + "}\\par}";
}

QByteArray BenchDocuments::cyrillicRtf(int count)
{
    return escapedRtf(count, 1251, 204, [](std::mt19937& random) { return escaped(0xE0 + random() % 32); });
}

QByteArray BenchDocuments::japaneseRtf(int count)
{
    // The second bytes of these characters are above ASCII.
    return escapedRtf(count / 2, 932, 128, [](std::mt19937& random) {
        return escaped(0x88 + random() % 16) + escaped(0x9F + random() % 80);
    });
}

QByteArray BenchDocuments::notesRtf(int count)
{
    std::mt19937 random(3);
    QByteArray rtf = header;
    for (int i = 0; i < count; ++i) {
        rtf += "\\pard\\plain " + sentence(random, 20).toLatin1()
            + "{\\super\\chftn{\\footnote\\pard\\plain{\\super\\chftn} " + sentence(random, 10).toLatin1()
            + "}}";
        rtf += sentence(random, 20).toLatin1() + "\\par\n";
    }
    return rtf + '}';
}

QByteArray BenchDocuments::listsRtf(int count)
{
    const int items = 10;
    std::mt19937 random(4);
    QByteArray rtf = QByteArray(header)
        + "{\\*\\listtable{\\list{\\listlevel\\levelnfc0{\\leveltext\\'02\\'00.;}\\fi-360\\li720}"
          "{\\listlevel\\levelnfc4{\\leveltext\\'02\\'01);}\\fi-360\\li1440}\\listid1}}"
          "{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}";
    for (int i = 0; i < count * items; ++i) {
        if (i % items == 0)
            rtf += "\\pard\\plain " + sentence(random, 10).toLatin1() + "\\par\n";
        rtf += "\\pard\\plain\\ls1\\ilvl" + QByteArray::number(i % items > 5) + "{\\listtext 1.\\tab}"
            + sentence(random, 10).toLatin1() + "\\par\n";
    }
    return rtf + '}';
}

QByteArray BenchDocuments::groupsRtf(int count)
{
    return header + QByteArray("{x}").repeated(count) + '}';
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
