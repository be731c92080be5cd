#ifndef WRITERHELPERS_H
#define WRITERHELPERS_H

#include "testsupport.h"

/*! What the tests of the writer share: formats, and the pieces that are written for them. */
namespace rtftest {

inline QTextCharFormat family(const QString& name)
{
    QTextCharFormat format;
    compat::setFontFamily(format, name);
    return format;
}

inline QTextCharFormat fixedPitch(const QTextCharFormat& format)
{
    return with(format, {{QTextFormat::FontFixedPitch, true}});
}

inline QTextCharFormat foreground(const QBrush& brush)
{
    return charFormat({{QTextFormat::ForegroundBrush, brush}});
}

/*! A document with a paragraph of one letter in each of \a formats. */
inline QSharedPointer<QTextDocument> runs(const QList<QTextCharFormat>& formats)
{
    const QSharedPointer<QTextDocument> document = newDocument();
    QTextCursor cursor(document.data());
    char text = 'a';
    for (const QTextCharFormat& format : formats)
        cursor.insertText(QString(QLatin1Char(text++)), format);
    return document;
}

/*! Two red pixels side by side. */
inline QImage redPixels()
{
    QImage image(2, 1, QImage::Format_RGB32);
    image.fill(Qt::red);
    return image;
}

/*! The font table's entry of an ordinary font. */
inline QByteArray fontEntry(int number, const QByteArray& name, int pitch = 2,
                            const QByteArray& familyWord = "\\fnil")
{
    return "{\\f" + QByteArray::number(number) + familyWord + "\\fcharset1252\\fprq"
        + QByteArray::number(pitch) + ' ' + name + ";}";
}

inline QByteArray colorEntry(int red, int green, int blue)
{
    return "\\red" + QByteArray::number(red) + "\\green" + QByteArray::number(green) + "\\blue"
        + QByteArray::number(blue) + ';';
}

const QByteArray RedEntry = colorEntry(255, 0, 0);
const QByteArray BlueEntry = colorEntry(0, 0, 255);
const QByteArray YellowEntry = colorEntry(255, 255, 0);

/*! What comes before the first character beyond ASCII of a text. */
inline QByteArray preamble(int fontNumber = 0)
{
    const QByteArray number = QByteArray::number(fontNumber);
    return "\\loch\\af" + number + "\\hich\\af" + number + "\\dbch\\af" + number + "\\uc1";
}

/*! What the first paragraph of a cell begins with. */
inline QByteArray cellStart(int depth = 1)
{
    return "\n\\pard\\plain \\intbl\\itap" + QByteArray::number(depth);
}

/*! A footnote's group; \a mark is the format of its mark. */
inline QByteArray footnote(const QByteArray& content, const QByteArray& mark = "\\f0\\fs24")
{
    return "{\\super\\chftn{\\footnote\\pard\\plain {\\super\\chftn" + mark + "}" + content + "}}";
}

} // namespace rtftest

/*! Verifies that \a actual contains \a part. */
#define ORV_CONTAINS(actual, part) \
    do { \
        const QByteArray orvActual = actual; \
        QVERIFY2(orvActual.contains(part), orvActual.constData()); \
    } while (false)

#endif
