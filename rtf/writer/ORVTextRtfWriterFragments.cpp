#include "ORVTextRtfWriter_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"
#include "ORVRtfTime_p.h"
#include "ORVTextUtil.h"
#include "QtStringCompat_p.h"

#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextImageFormat>

using namespace ORVRtfProperty;

namespace {

bool isAnchored(const QTextCharFormat& format)
{
    return format.property(AnnotationAnchor).toBool() || format.property(FootnoteAnchor).toBool();
}

} // namespace

/*! \a next is the next fragment of the same paragraph, invalid at its end. */
void ORVTextRtfWriterPrivate::processFragment(const QTextFragment& fragment, const QTextFragment& next,
                                              const QTextBlock& block, Pass pass)
{
    RunFormat& run = m_text.runFormat(fragment);
    if (pass == Collect) {
        collectRun(run);
        return;
    }

    // The state is compared before conversion: a note that is written as another kind begins anew with each
    // fragment. Programs in the field rely on it.
    if (goesOnIn(run.state)) {
        m_paragraph.lastRun = &run;
        writeContent(fragment, run, true);
        return;
    }
    finalizeFragmentState(run.state.name);
    m_paragraph.fragment = run.state.convertedState(m_settings);
    m_paragraph.lastRun = &run;
    // If more text follows in the same construct, each run has a group, so that its format does not affect
    // the next.
    const bool isFollowed = next.isValid() && goesOnIn(m_text.runFormat(next).state);
    openState(fragment, run, isFollowed, block);
}

/*! Whether text of \a state belongs to the construct that is open. In a note the link's target is ignored. */
bool ORVTextRtfWriterPrivate::goesOnIn(const FragmentState& state) const
{
    const FragmentState& open = m_paragraph.fragment;
    return state == open && (open.link == state.link || (open.flags & FragmentState::AnyNote));
}

void ORVTextRtfWriterPrivate::collectRun(RunFormat& run)
{
    if (run.isCollected)
        return;
    run.isCollected = true;
    collectFormat(run.format);
    collectNote(run.format);
}

/*! Notes have fonts, colours and lists of their own. */
void ORVTextRtfWriterPrivate::collectNote(const QTextCharFormat& format)
{
    if (!format.property(HasNoteContent).toBool())
        return;
    const QByteArray content = format.property(NoteContent).toByteArray();
    if (!content.isEmpty())
        processSubDocument(m_noteDocuments.document(content, m_document).data(), Collect);
}

/*! Opens the construct of the current state around \a fragment; finalizeFragmentState() closes it. */
void ORVTextRtfWriterPrivate::openState(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                                        const QTextBlock& block)
{
    const int flags = m_paragraph.fragment.flags;
    if (flags & FragmentState::Annotation)
        openAnnotation(fragment, run, isFollowed, block);
    else if (flags & FragmentState::AnnotationAnchor)
        openAnnotationRange(fragment, run, isFollowed);
    else if (flags & FragmentState::FootnoteAnchor)
        openFootnoteAnchor(fragment, run);
    else if (flags & (FragmentState::Footnote | FragmentState::AlternateFootnote))
        openFootnote(fragment, run, isFollowed, block);
    else if (flags & FragmentState::Hyperlink)
        openHyperlink(fragment, run, isFollowed);
    else
        writeContent(fragment, run, true);
}

void ORVTextRtfWriterPrivate::openAnnotation(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                                             const QTextBlock& block)
{
    if (isAnchored(run.format))
        writeContent(fragment, run, false);
    m_output.openGroup();
    writeNumberFormat(run);
    m_output.write(AnnotationCharacter);
    m_output.openIgnorableGroup(Annotation);
    writeNoteText(fragment, run, isFollowed, block);
}

void ORVTextRtfWriterPrivate::openAnnotationRange(const QTextFragment& fragment, RunFormat& run,
                                                  bool isFollowed)
{
    if (run.state.noteNumber < 0) {
        ++m_noteCounter;
        m_output.openGroup();
        writeNumberGroup(AnnotationRefStart);
    }
    writeContent(fragment, run, isFollowed);
    m_paragraph.pendingNote = run.format.property(NoteContent).toByteArray();
}

/*! A mark of the author's own is written where other notes have the word for their number. */
void ORVTextRtfWriterPrivate::openFootnoteAnchor(const QTextFragment& fragment, RunFormat& run)
{
    if (run.state.noteNumber == 0)
        m_paragraph.pendingMark = fragment.text();
    else
        writeContent(fragment, run, true);
    m_paragraph.pendingNote = run.format.property(NoteContent).toByteArray();
}

void ORVTextRtfWriterPrivate::openFootnote(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                                           const QTextBlock& block)
{
    if (isAnchored(run.format))
        writeContent(fragment, run, false);
    openFootnoteGroups(m_paragraph.fragment.flags & FragmentState::AlternateFootnote, run, QString());
    writeNoteText(fragment, run, isFollowed, block);
}

/*!
    Opens the footnote inside the group of its mark: the number of the note unless the author has chosen
    \a ownMark. The footnote begins with the mark again.
*/
void ORVTextRtfWriterPrivate::openFootnoteGroups(bool isAlternate, RunFormat& mark, const QString& ownMark)
{
    m_output.openGroup();
    m_output.write(SuperScript);
    if (ownMark.isEmpty()) {
        writeNumberFormat(mark);
        m_output.write(FootnoteCharacter);
    } else {
        writeFormattedText(ownMark, mark);
    }
    m_output.openGroup();
    m_output.write(Footnote);
    if (isAlternate)
        m_output.write(AlternateFootnote);
    m_output.write(ResetParagraph);
    m_output.write(ResetFormat);
    m_output.endKeyword();
    m_output.openGroup();
    m_output.write(SuperScript);
    if (ownMark.isEmpty()) {
        m_output.write(FootnoteCharacter);
        writeCharFormat(mark);
    } else {
        writeFormattedText(ownMark, mark);
    }
    m_output.closeGroup();
}

/*! The number itself is not written, but looks like the text of \a mark. */
void ORVTextRtfWriterPrivate::writeNumberFormat(RunFormat& mark)
{
    if (mark.state.isNumber())
        writeCharFormat(mark);
}

/*! Writes the text of a note: the note attached to \a fragment, or the inline text of the fragment itself. */
void ORVTextRtfWriterPrivate::writeNoteText(const QTextFragment& fragment, RunFormat& run, bool isFollowed,
                                            const QTextBlock& block)
{
    if (isAnchored(run.format)) {
        writeNote(run.format.property(NoteContent).toByteArray());
        return;
    }
    if (m_settings.footnotesWithLeadingSpace)
        m_output.writePrintableCharacters(QLatin1String(" "), 0, true, false, QString());
    writeBlockFormat(block);
    writeContent(fragment, run, isFollowed, m_settings.footnotesWithLeadingSpace);
}

/*! The field of a link: its target, and the text that shows it. */
void ORVTextRtfWriterPrivate::openHyperlink(const QTextFragment& fragment, RunFormat& run, bool isFollowed)
{
    m_output.openGroup();
    m_output.write(Field);
    m_output.openIgnorableGroup(FieldInstruction);
    const QString instruction = compat::fromLatin1(m_paragraph.fragment.link.toLatin1());
    m_output.writePrintableCharacters(instruction, 0, true, false, QString());
    m_output.closeGroup();
    m_output.openGroup();
    m_output.write(FieldResult);
    writeContent(fragment, run, isFollowed);
}

/*!
    Writes the text of \a fragment, or its pictures: Qt joins neighbouring pictures of equal format into one
    fragment with a character for each.
*/
void ORVTextRtfWriterPrivate::writeContent(const QTextFragment& fragment, RunFormat& run, bool inGroup,
                                           bool isTrimmed)
{
    // Programs make the numbers of notes themselves.
    if (run.state.isNumber())
        return;
    if (run.isPicture) {
        for (int i = 0; i < fragment.length(); ++i)
            writePicture(run.format.toImageFormat());
        return;
    }
    if (inGroup)
        m_output.openGroup();
    writeFormattedText(isTrimmed ? ORVTextUtil::trimLeadingSpaces(fragment.text()) : fragment.text(), run);
    if (inGroup)
        m_output.closeGroup();
}

/*!
    Closes the open construct. \a nextBookmark is the bookmark of the text that follows, if any: a bookmark
    goes on while its name stays.
*/
void ORVTextRtfWriterPrivate::finalizeFragmentState(const QString& nextBookmark)
{
    const int flags = m_paragraph.fragment.flags;
    if (!(flags & FragmentState::Annotation)) {
        if (flags & FragmentState::AnnotationAnchor)
            return writeAnnotationEnd();
        if (flags & FragmentState::FootnoteAnchor)
            return writeFootnoteEnd();
    }
    if (flags & (FragmentState::AnyNote | FragmentState::Hyperlink)) {
        m_output.closeGroup();
        m_output.closeGroup();
    }
    if (m_paragraph.fragment.name != nextBookmark)
        writeBookmark(m_paragraph.fragment.name);
}

/*! `{\*\word number}`, with the number of the current note. */
void ORVTextRtfWriterPrivate::writeNumberGroup(KeyWord keyWord)
{
    writeTextGroup(keyWord, QString::number(m_noteCounter));
}

/*! Ends the range of the annotation, unless it is a mark, which has none, and writes the annotation. */
void ORVTextRtfWriterPrivate::writeAnnotationEnd()
{
    const bool isMark = m_paragraph.fragment.noteNumber >= 0;
    if (!isMark) {
        writeNumberGroup(AnnotationRefEnd);
        m_output.closeGroup();
    }
    const QTextCharFormat& format = m_paragraph.lastRun->format;
    if (format.hasProperty(NoteInitials))
        writeTextGroup(AnnotationId, format.stringProperty(NoteInitials));
    if (format.hasProperty(NoteAuthor))
        writeTextGroup(AnnotationAuthor, format.stringProperty(NoteAuthor));
    m_output.openGroup();
    writeNumberFormat(*m_paragraph.lastRun);
    m_output.write(AnnotationCharacter);
    m_output.openIgnorableGroup(Annotation);
    if (!isMark)
        writeNumberGroup(AnnotationRef);
    writeAnnotationDate(format.property(NoteDate).toDateTime());
    writePendingNote();
    m_output.closeGroup();
    m_output.closeGroup();
}

/*! `{\*\word text}`. */
void ORVTextRtfWriterPrivate::writeTextGroup(KeyWord keyWord, const QString& text)
{
    m_output.openIgnorableGroup(keyWord);
    m_output.writePrintableCharacters(text, 0, true, false, QString());
    m_output.closeGroup();
}

void ORVTextRtfWriterPrivate::writeAnnotationDate(const QDateTime& date)
{
    const quint32 packed = date.isValid() ? ORVRtfTime::of(date).packed() : 0;
    if (packed == 0)
        return;
    m_output.openGroup();
    m_output.write(OptionalDestination);
    m_output.write("\\atndate");
    // Programs read the 32 bits as a signed number.
    m_output.writePrintableCharacters(QString::number(qint32(packed)), 0, true, false, QString());
    m_output.closeGroup();
}

void ORVTextRtfWriterPrivate::writeFootnoteEnd()
{
    const QString ownMark = m_paragraph.pendingMark;
    m_paragraph.pendingMark.clear();
    openFootnoteGroups(m_paragraph.fragment.isEndnote, *m_paragraph.lastRun, ownMark);
    writePendingNote();
    m_output.closeGroup();
    m_output.closeGroup();
}

void ORVTextRtfWriterPrivate::writeBookmark(const QString& name)
{
    if (!name.isEmpty())
        writeTextGroup(name.startsWith(QLatin1Char('@')) ? BookmarkEnd : BookmarkStart, name);
}

void ORVTextRtfWriterPrivate::writePendingNote()
{
    const QByteArray content = m_paragraph.pendingNote;
    m_paragraph.pendingNote.clear();
    writeNote(content);
}

void ORVTextRtfWriterPrivate::writeNote(const QByteArray& content)
{
    const QSharedPointer<QTextDocument> document = m_noteDocuments.document(content, m_document);
    if (!document)
        return;
    if (m_settings.footnotesWithLeadingSpace) {
        m_output.writePrintableCharacters(QLatin1String(" "), 0, true, false, QString());
        QTextCursor all(document.data());
        all.select(QTextCursor::Document);
        ORVTextUtil::trim(all);
    }
    processSubDocument(document.data(), Write);
}

/*! Walks a note. The state of the paragraph around it is restored afterwards. */
void ORVTextRtfWriterPrivate::processSubDocument(QTextDocument* document, Pass pass)
{
    if (!document || m_noteDepth >= ORVRtfLimits::noteNesting)
        return;
    const ParagraphState paragraph = m_paragraph;
    ORVRtfTextSource text = std::move(m_text);
    ++m_noteDepth;
    processDocument(document, pass);
    m_text = std::move(text);
    m_paragraph = paragraph;
    --m_noteDepth;
}
