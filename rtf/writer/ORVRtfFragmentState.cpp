#include "ORVRtfFragmentState_p.h"

#include "ORVRtfProperties.h"
#include "ORVRtfWriterSettings_p.h"

#include <QtGui/QTextCharFormat>

namespace {

/*! A page reference links to its bookmark, whatever the link's own target. */
QString linkInstruction(const QTextCharFormat& format)
{
    const QString bookmark = format.property(ORVRtfProperty::PageReference).toString();
    if (bookmark.isEmpty())
        return QLatin1String("HYPERLINK \"") + format.anchorHref() + QLatin1Char('"');
    return QLatin1String("HYPERLINK \\l ") + bookmark;
}

void setNote(ORVRtfFragmentState& state, const QTextCharFormat& format)
{
    state.noteData = format.property(ORVRtfProperty::NoteContent).toByteArray();
    state.isEndnote = format.property(ORVRtfProperty::EndnoteAnchor).toBool();
    if (format.hasProperty(ORVRtfProperty::NoteNumber))
        state.noteNumber = format.intProperty(ORVRtfProperty::NoteNumber);
}

} // namespace

ORVRtfFragmentState ORVRtfFragmentState::cleanState(const QTextCharFormat& format)
{
    ORVRtfFragmentState state;
    if (format.property(ORVRtfProperty::InAnnotation).toBool())
        state.flags |= Annotation;
    if (format.property(ORVRtfProperty::InFootnote).toBool())
        state.flags |= Footnote;
    if (format.property(ORVRtfProperty::AnnotationAnchor).toBool())
        state.flags |= AnnotationAnchor;
    if (format.property(ORVRtfProperty::FootnoteAnchor).toBool())
        state.flags |= FootnoteAnchor;
    if (state.flags & (AnnotationAnchor | FootnoteAnchor))
        setNote(state, format);
    if (format.isAnchor() && !format.anchorHref().isEmpty()) {
        state.flags |= Hyperlink;
        state.link = linkInstruction(format);
    }
    state.name = format.property(ORVRtfProperty::BookmarkName).toString();
    if (!state.name.isEmpty())
        state.flags |= Bookmark;
    return state;
}

ORVRtfFragmentState ORVRtfFragmentState::convertedState(const ORVRtfWriterSettings& settings) const
{
    const int annotations = Annotation | AnnotationAnchor;
    const int footnotes = Footnote | FootnoteAnchor;

    ORVRtfFragmentState converted(*this);
    converted.flags &= Hyperlink | Bookmark;
    if (flags & annotations) {
        switch (settings.annotationDestination) {
        case ORVTextRtf::ExportAsFootnote: converted.flags |= Footnote; break;
        case ORVTextRtf::ExportAsAlternateFootnote: converted.flags |= AlternateFootnote; break;
        default: converted.flags |= flags & (annotations | footnotes); break;
        }
    } else if (flags & footnotes) {
        switch (settings.footnoteDestination) {
        case ORVTextRtf::ExportAsAnnotation: converted.flags |= Annotation; break;
        case ORVTextRtf::ExportAsAlternateFootnote: converted.flags |= AlternateFootnote; break;
        default: converted.flags |= flags & footnotes; break;
        }
    }
    return converted;
}

bool ORVRtfFragmentState::operator==(const ORVRtfFragmentState& other) const
{
    return this == &other
        || (flags == other.flags && noteData == other.noteData && noteNumber == other.noteNumber
            && name == other.name);
}
