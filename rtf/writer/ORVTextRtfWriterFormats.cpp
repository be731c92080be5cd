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

/*! Whether \a pen draws the outline of outlined text: a thin black line, whatever default width it has. */
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
        writeCharFormat(runFormat(block));
}

ORVTextRtfWriterPrivate::RunFormat& ORVTextRtfWriterPrivate::runFormat(const QTextFragment& fragment)
{
    std::unique_ptr<RunFormat>& run = runFormatAt(fragment.charFormatIndex());
    if (!run)
        run = describe(fragment.charFormat());
    return *run;
}

ORVTextRtfWriterPrivate::RunFormat& ORVTextRtfWriterPrivate::runFormat(const QTextBlock& block)
{
    std::unique_ptr<RunFormat>& run = runFormatAt(block.charFormatIndex());
    if (!run)
        run = describe(block.charFormat());
    return *run;
}

std::unique_ptr<ORVTextRtfWriterPrivate::RunFormat>& ORVTextRtfWriterPrivate::runFormatAt(int number)
{
    const size_t index = size_t(number);
    if (index >= m_text.formats.size())
        m_text.formats.resize(index + 1);
    return m_text.formats[index];
}

std::unique_ptr<ORVTextRtfWriterPrivate::RunFormat>
ORVTextRtfWriterPrivate::describe(const QTextCharFormat& format)
{
    std::unique_ptr<RunFormat> run(new RunFormat);
    run->format = format;
    run->state = cleanState(format);
    run->isPicture = format.toImageFormat().isValid();
    run->pageReference = format.property(PageReference).toString();
    return run;
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
    return (m_exportingMode && format.property(RevisionLevel).toInt() > 0)
        || (m_decorateHyperlinks && format.isAnchor());
}

QColor ORVTextRtfWriterPrivate::foregroundColor(const QTextCharFormat& format) const
{
    const int level = format.property(RevisionLevel).toInt();
    if (m_exportingMode && level > 0)
        return revisionColor(level);
    if (m_decorateHyperlinks && format.isAnchor())
        return m_hyperlinksColor;
    return compat::brushColor(format, QTextFormat::ForegroundBrush);
}

void ORVTextRtfWriterPrivate::writeCharFormat(RunFormat& run)
{
    if (run.words.isEmpty()) {
        run.words = charFormatWords(run.format);
        run.fontNumber = m_fonts.number(compat::font(run.format));
    }
    m_output.writeWords(run.words);
}

/*! States every property that \a format has. Nothing is reset: text stands in groups of its own. */
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
    if (level > 0 && !m_exportingMode) {
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
    if (m_decorateHyperlinks && format.isAnchor()) {
        words.write(UnderlineSolid);
        words.write(UnderlineColor, m_colors.number(m_hyperlinksColor));
    }
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

/*! MS Word knows a few highlight colours only; as shading it takes any. */
void ORVTextRtfWriterPrivate::writeBackground(int number, ORVRtfOutput& words) const
{
    words.write(BackgroundColor, number);
    if (m_highlightForMsWord) {
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

bool ORVTextRtfWriterPrivate::FragmentState::operator==(const FragmentState& other) const
{
    return this == &other || (flags == other.flags && noteData == other.noteData && name == other.name);
}

ORVTextRtfWriterPrivate::FragmentState ORVTextRtfWriterPrivate::cleanState(const QTextCharFormat& format)
{
    FragmentState state;
    if (format.property(InAnnotation).toBool())
        state.flags |= FragmentState::Annotation;
    if (format.property(InFootnote).toBool())
        state.flags |= FragmentState::Footnote;
    if (format.property(AnnotationAnchor).toBool())
        state.flags |= FragmentState::AnnotationAnchor;
    if (format.property(FootnoteAnchor).toBool())
        state.flags |= FragmentState::FootnoteAnchor;
    if (state.flags & (FragmentState::AnnotationAnchor | FragmentState::FootnoteAnchor))
        state.noteData = format.property(NoteContent).toByteArray();
    if (format.isAnchor() && !format.anchorHref().isEmpty()) {
        state.flags |= FragmentState::Hyperlink;
        state.link = linkInstruction(format);
    }
    state.name = format.property(BookmarkName).toString();
    if (!state.name.isEmpty())
        state.flags |= FragmentState::Bookmark;
    return state;
}

/*! What \a state becomes where notes of one kind are to be written as another. */
ORVTextRtfWriterPrivate::FragmentState
ORVTextRtfWriterPrivate::convertedState(const FragmentState& state) const
{
    const int annotations = FragmentState::Annotation | FragmentState::AnnotationAnchor;
    const int footnotes = FragmentState::Footnote | FragmentState::FootnoteAnchor;
    const int others = FragmentState::Hyperlink | FragmentState::Bookmark;

    FragmentState converted(state);
    converted.flags &= others;
    if (state.flags & annotations) {
        switch (m_annotationDestination) {
        case ORVTextRtf::ExportAsFootnote: converted.flags |= FragmentState::Footnote; break;
        case ORVTextRtf::ExportAsAlternateFootnote:
            converted.flags |= FragmentState::AlternateFootnote;
            break;
        default: converted.flags |= state.flags & (annotations | footnotes); break;
        }
    } else if (state.flags & footnotes) {
        switch (m_footnoteDestination) {
        case ORVTextRtf::ExportAsAnnotation: converted.flags |= FragmentState::Annotation; break;
        case ORVTextRtf::ExportAsAlternateFootnote:
            converted.flags |= FragmentState::AlternateFootnote;
            break;
        default: converted.flags |= state.flags & footnotes; break;
        }
    }
    return converted;
}
