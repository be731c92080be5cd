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
    QString name;
    /*! Instruction of the link's field. Not compared: it only distinguishes neighbouring links. */
    QString link;

    /*! The state of text of \a format. */
    static ORVRtfFragmentState cleanState(const QTextCharFormat& format);
    /*! This state where \a settings have notes of one kind written as another. */
    ORVRtfFragmentState convertedState(const ORVRtfWriterSettings& settings) const;

    bool operator==(const ORVRtfFragmentState& other) const;
};

#endif
