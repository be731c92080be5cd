#include "ORVTextRtfWriter_p.h"

#include "ORVRtfProperties.h"
#include "ORVRtfWordTables_p.h"
#include "QtCompat_p.h"

using namespace ORVRtfProperty;
using namespace ORVRtfWordTables;

namespace {

// Width of the line around outlined text, and the automatic colour.
const int outlineWidth = 60;
const int automaticColor = 0;

} // namespace

void ORVTextRtfWriterPrivate::processFormat(const QTextCharFormat& format, Pass pass)
{
    if (pass == Collect)
        collectFormat(format);
    else
        writeCharFormat(format);
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

/*! States every property that \a format has. Nothing is reset: text stands in groups of its own. */
void ORVTextRtfWriterPrivate::writeCharFormat(const QTextCharFormat& format)
{
    m_output.write(Font, m_fonts.number(format));
    m_output.write(FontSize, compat::halfPoints(compat::font(format)));
    writeFontStyle(format);
    const int level = format.property(RevisionLevel).toInt();
    if (level > 0 && !m_exportingMode) {
        m_output.write(OptionalDestination);
        m_output.write(OrvellineRevisionLevel, level);
    }
    writeColors(format);
}

void ORVTextRtfWriterPrivate::writeFontStyle(const QTextCharFormat& format)
{
    if (format.hasProperty(QTextFormat::FontWeight))
        m_output.write(Bold, format.property(QTextFormat::FontWeight).toInt() > int(QFont::Normal) ? 1 : 0);
    if (format.hasProperty(QTextFormat::FontItalic))
        m_output.write(Italic, format.property(QTextFormat::FontItalic).toBool() ? 1 : 0);
    const int underline = format.property(QTextFormat::TextUnderlineStyle).toInt();
    if (const KeyWord word = wordOf(underlineStyles, underline)) {
        m_output.write(word);
        m_output.write(UnderlineColor, automaticColor);
    }
    const int alignment = format.property(QTextFormat::TextVerticalAlignment).toInt();
    if (alignment == QTextCharFormat::AlignSuperScript || alignment == QTextCharFormat::AlignSubScript)
        m_output.write(wordOf(verticalAlignments, alignment));
    if (format.property(QTextFormat::FontStrikeOut).toBool()) {
        m_output.write(StrikeThrough);
        m_output.write(StrikeThroughColor, automaticColor);
    }
    if (format.property(QTextFormat::FontCapitalization).toInt() == QFont::SmallCaps)
        m_output.write(SmallCaps);
    if (format.hasProperty(QTextFormat::TextOutline) && compat::isDefaultOutline(format.textOutline())) {
        m_output.write(Outline);
        m_output.write(StrokeWidth, outlineWidth);
        m_output.write(StrokeColor, automaticColor);
    }
}

void ORVTextRtfWriterPrivate::writeColors(const QTextCharFormat& format)
{
    if (m_decorateHyperlinks && format.isAnchor()) {
        m_output.write(UnderlineSolid);
        m_output.write(UnderlineColor, m_colors.number(m_hyperlinksColor));
    }
    const int colorCount = int(m_colors.colors().size());
    if (hasChosenColor(format) || format.hasProperty(QTextFormat::ForegroundBrush)) {
        const int number = m_colors.number(foregroundColor(format));
        if (number <= colorCount)
            m_output.write(ForegroundColor, number);
    }
    if (format.hasProperty(QTextFormat::BackgroundBrush)) {
        const int number = m_colors.number(compat::brushColor(format, QTextFormat::BackgroundBrush));
        if (number <= colorCount)
            writeBackground(number);
    }
}

/*! MS Word knows a few highlight colours only; as shading it takes any. */
void ORVTextRtfWriterPrivate::writeBackground(int number)
{
    m_output.write(BackgroundColor, number);
    if (m_highlightForMsWord) {
        m_output.write("\\chshdng", 0);
        m_output.write("\\chcbpat", number);
    } else {
        m_output.write(HighlightColor, number);
    }
}

void ORVTextRtfWriterPrivate::writeFormattedText(const QString& text, const QTextCharFormat& format)
{
    writeCharFormat(format);
    m_output.writePrintableCharacters(text, m_fonts.number(compat::font(format)), true, false,
                                      format.property(PageReference).toString());
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
