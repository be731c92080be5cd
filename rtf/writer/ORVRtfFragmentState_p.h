#ifndef ORVRTFFRAGMENTSTATE_P_H
#define ORVRTFFRAGMENTSTATE_P_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

class QTextCharFormat;
struct ORVRtfWriterSettings;

/*! The notes, the link and the bookmark that a run of text belongs to. */
struct ORVRtfFragmentState {
    enum Flag {
        Annotation = 1,
        Footnote = 2,
        AnnotationAnchor = 4,
        FootnoteAnchor = 8,
        AlternateFootnote = 16,
        Hyperlink = 32,
        Bookmark = 64,
        AnyNote = Annotation | Footnote | AnnotationAnchor | FootnoteAnchor | AlternateFootnote
    };
    int flags = 0;
    QByteArray noteData;
    /*! Number of the note whose mark the text is, 0 for a mark of the author's own; -1 for other text. */
    int noteNumber = -1;
    /*! The note stands at the end of the document. */
    bool isEndnote = false;
    QString name;
    /*! Instruction of the link's field. Not compared: it only distinguishes neighbouring links. */
    QString link;

    /*! The state of text of \a format. */
    static ORVRtfFragmentState cleanState(const QTextCharFormat& format);
    /*! This state where \a settings have notes of one kind written as another. */
    ORVRtfFragmentState convertedState(const ORVRtfWriterSettings& settings) const;

    /*! Whether the text is a mark that programs make of the note's number. */
    bool isNumber() const { return noteNumber > 0; }

    bool operator==(const ORVRtfFragmentState& other) const;
};

#endif
