#ifndef RUNHELPERS_H
#define RUNHELPERS_H

#include "ORVTextListFormat.h"
#include "rtftesthelpers.h"

#include <QtGui/QTextList>

/*! What the tests of reading compare formats by: the runs of a document, a line each. */
namespace rtftest {

/*! \a piece with the numbers from 1 to \a count, times \a step, in place of "#". */
inline QByteArray counted(const QByteArray& piece, int count, int step = 1)
{
    QByteArray result;
    for (int i = 1; i <= count; ++i)
        result += QByteArray(piece).replace('#', QByteArray::number(i * step));
    return result;
}

/*! A row for each of \a words, which blanks separate and which name their rows. */
template <typename Add, typename... Values>
void addWords(const Add& add, const QByteArray& words, const Values&... values)
{
    for (const QByteArray& word : words.split(' '))
        add(word, values...);
}

/*! \a properties with one more of them. */
inline Properties with(int id, const QVariant& value, Properties properties = Properties())
{
    properties.insert(id, value);
    return properties;
}

inline const Properties plainRun;
inline const Properties boldRun = with(QTextFormat::FontWeight, int(QFont::Bold));

inline QString run(const QString& text, const Properties& format)
{
    return text + " [" + dump(format) + ']';
}

/*! Text and format of each run, "|" between paragraphs. */
inline QStringList runsOf(const QList<QTextBlock>& blocks)
{
    QStringList runs;
    for (const QTextBlock& block : blocks) {
        if (block != blocks.first())
            runs << QStringLiteral("|");
        for (const QTextFragment& fragment : fragmentsOf(block))
            runs << run(fragment.text(), propertiesOf(fragment.charFormat()));
    }
    return runs;
}

inline QStringList runsOf(const Reading& reading)
{
    QList<QTextBlock> blocks;
    for (int i = 0; i < reading.blockCount(); ++i)
        blocks << reading.block(i);
    return runsOf(blocks);
}

/*! The levels of the list that a paragraph is in; one level of no kind for a paragraph of no list. */
inline QList<ORVTextListLevel> levelsOf(const Reading& reading, int block = 0)
{
    QTextList* const list = reading.block(block).textList();
    return list ? ORVTextListFormat::levels(list->format()) : QList<ORVTextListLevel>{ORVTextListLevel()};
}

/*! Tab stops in a comparable form: position, kind and delimiter of each. */
inline QString tabsOf(const QTextBlockFormat& format)
{
    QStringList tabs;
    const QList<QTextOption::Tab> stops = format.tabPositions();
    for (const QTextOption::Tab& stop : stops) {
        const QString delimiter = stop.delimiter.isNull() ? QString() : QString(stop.delimiter);
        tabs << QStringLiteral("%1 %2%3").arg(stop.position).arg(int(stop.type)).arg(delimiter);
    }
    return tabs.join(QStringLiteral(", "));
}

inline QImage solidImage(int width, int height, const QColor& color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/*! \a image as a file of the given format. */
inline QByteArray encoded(const QImage& image, const char* format = "PNG")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

} // namespace rtftest

#endif
