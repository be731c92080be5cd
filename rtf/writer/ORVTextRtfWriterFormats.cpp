#include "ORVTextRtfWriter_p.h"

#include "ORVRtfProperties.h"
#include "ORVRtfWordValues_p.h"
#include "QtFontCompat_p.h"
#include "QtFormatCompat_p.h"

#include <QtCore/QBuffer>

using namespace ORVRtfProperty;
using namespace ORVRtfWordValues;

namespace {

// Width of the line around outlined text, and the automatic colour.
const int outlineWidth = 60;
const int automaticColor = 0;

/*!
    Whether \a pen is that of outlined text: a thin black line. The default width of a pen depends on the Qt
    version.
*/
bool isDefaultOutline(const QPen& pen)
{
    return pen == QPen(Qt::SolidLine) || pen == QPen(QBrush(Qt::black), 0);
}

} // namespace

/*! The format of an empty paragraph. */
void ORVTextRtfWriterPrivate::processFormat(const QTextBlock& block, Pass pass)
{
    if (pass == Collect)
        collectFormat(block.charFormat());
    else
        writeCharFormat(m_text.runFormat(block));
}

void ORVTextRtfWriterPrivate::collectFormat(const QTextCharFormat& format)
{
    m_fonts.appendMissing(format);
    m_colors.appendMissing(foregroundColor(format));
    m_colors.appendMissing(compat::brushColor(format, QTextFormat::BackgroundBrush));
}

/*! Whether a revision level or a decorated link decides on the colour of the text. */
bool ORVTextRtfWriterPrivate::hasChosenColor(const QTextCharFormat& format) const
{
    return (m_settings.exportingMode && format.property(RevisionLevel).toInt() > 0)
        || (m_settings.decorateHyperlinks && format.isAnchor());
}

QColor ORVTextRtfWriterPrivate::foregroundColor(const QTextCharFormat& format) const
{
    const int level = format.property(RevisionLevel).toInt();
    if (m_settings.exportingMode && level > 0)
        return revisionColor(level);
    if (m_settings.decorateHyperlinks && format.isAnchor())
        return m_settings.hyperlinksColor;
    return compat::brushColor(format, QTextFormat::ForegroundBrush);
}

/*! The words are created once for each format: runs of the same format are frequent. */
void ORVTextRtfWriterPrivate::writeCharFormat(RunFormat& run)
{
    if (run.words.isEmpty()) {
        run.words = charFormatWords(run.format);
        run.fontNumber = m_fonts.number(compat::font(run.format));
    }
    m_output.writeWords(run.words);
}

/*!
    Writes every property that \a format has. Nothing is reset, since each run of text has a group of its own.
*/
QByteArray ORVTextRtfWriterPrivate::charFormatWords(const QTextCharFormat& format) const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ORVRtfOutput words;
    words.setDevice(&buffer);
    words.write(Font, m_fonts.number(format));
    words.write(FontSize, ORVRtfOutputFonts::halfPoints(compat::font(format)));
    writeFontStyle(format, words);
    const int level = format.property(RevisionLevel).toInt();
    if (level > 0 && !m_settings.exportingMode) {
        words.write(OptionalDestination);
        words.write(OrvellineRevisionLevel, level);
    }
    writeColors(format, words);
    words.flush();
    return bytes;
}

void ORVTextRtfWriterPrivate::writeFontStyle(const QTextCharFormat& format, ORVRtfOutput& words) const
{
    if (format.hasProperty(QTextFormat::FontWeight))
        words.write(Bold, format.property(QTextFormat::FontWeight).toInt() > int(QFont::Normal) ? 1 : 0);
    if (format.hasProperty(QTextFormat::FontItalic))
        words.write(Italic, format.property(QTextFormat::FontItalic).toBool() ? 1 : 0);
    const int underline = format.property(QTextFormat::TextUnderlineStyle).toInt();
    if (const KeyWord word = wordOf(underlineStyles, underline)) {
        words.write(word);
        words.write(UnderlineColor, automaticColor);
    }
    const int alignment = format.property(QTextFormat::TextVerticalAlignment).toInt();
    if (alignment == QTextCharFormat::AlignSuperScript || alignment == QTextCharFormat::AlignSubScript)
        words.write(wordOf(verticalAlignments, alignment));
    if (format.property(QTextFormat::FontStrikeOut).toBool()) {
        words.write(StrikeThrough);
        words.write(StrikeThroughColor, automaticColor);
    }
    if (format.property(QTextFormat::FontCapitalization).toInt() == QFont::SmallCaps)
        words.write(SmallCaps);
    if (format.hasProperty(QTextFormat::TextOutline) && isDefaultOutline(format.textOutline())) {
        words.write(Outline);
        words.write(StrokeWidth, outlineWidth);
        words.write(StrokeColor, automaticColor);
    }
}

void ORVTextRtfWriterPrivate::writeColors(const QTextCharFormat& format, ORVRtfOutput& words) const
{
    if (m_settings.decorateHyperlinks && format.isAnchor()) {
        words.write(UnderlineSolid);
        words.write(UnderlineColor, m_colors.number(m_settings.hyperlinksColor));
    }
    // A document without colours has no colour table that numbers could refer to.
    const int colorCount = int(m_colors.colors().size());
    if (hasChosenColor(format) || format.hasProperty(QTextFormat::ForegroundBrush)) {
        const int number = m_colors.number(foregroundColor(format));
        if (number <= colorCount)
            words.write(ForegroundColor, number);
    }
    if (format.hasProperty(QTextFormat::BackgroundBrush)) {
        const int number = m_colors.number(compat::brushColor(format, QTextFormat::BackgroundBrush));
        if (number <= colorCount)
            writeBackground(number, words);
    }
}

/*! MS Word has few highlight colours, but accepts any colour as shading. */
void ORVTextRtfWriterPrivate::writeBackground(int number, ORVRtfOutput& words) const
{
    words.write(BackgroundColor, number);
    if (m_settings.highlightForMsWord) {
        words.write("\\chshdng", 0);
        words.write("\\chcbpat", number);
    } else {
        words.write(HighlightColor, number);
    }
}

void ORVTextRtfWriterPrivate::writeFormattedText(const QString& text, RunFormat& run)
{
    writeCharFormat(run);
    m_output.writePrintableCharacters(text, run.fontNumber, true, false, run.pageReference);
}
