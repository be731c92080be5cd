#ifndef ORVRTFSTORY_P_H
#define ORVRTFSTORY_P_H

#include "ORVRtfCellContent_p.h"
#include "ORVRtfNoteMarks_p.h"
#include "ORVRtfOldList_p.h"
#include "ORVRtfPageTexts_p.h"
#include "ORVRtfParagraph_p.h"
#include "ORVRtfScripts_p.h"
#include "ORVRtfTableBuilder_p.h"
#include "ORVRtfTextInserter_p.h"

#include <QtCore/QList>
#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextDocument>

/*! The field that is open. */
struct ORVRtfOpenField {
    /*! The state of a form's check box that means its default. */
    static constexpr int unset = 25;

    /*! The check box. */
    int formResult = unset;
    int formDefault = 0;
    /*! Its result shows something. */
    bool hasResult = false;
};

/*! A text box that hangs on a paragraph. */
struct ORVRtfTextBox {
    /*! The content, in less memory than a document takes. */
    ORVRtfCellContent content;
    /*! Set instead where the box begins with a table, which follows the paragraph itself. */
    QSharedPointer<QTextDocument> document;
};

/*! What is known of a running text where it is read. Each story has its own. */
struct ORVRtfRunningText {
    /*! The paragraph has text that is seen. */
    bool hasShownText = false;
    /*! Raised text, if that is what was drawn last: it can be the mark of a note. */
    QString raisedText;
    /*! That of the last text. */
    ORVRtfScripts::Script script = ORVRtfScripts::Western;
    /*! The number of a note was asked for, and nothing was drawn since. */
    bool hasNoteNumber = false;
    /*! Names of bookmarks that begin here. */
    QStringList anchorNames;
    /*! Text boxes that hang on the paragraph. */
    QList<ORVRtfTextBox> boxes;
    ORVRtfOpenField field;
    ORVRtfOldList oldList;
};

/*!
    A text that stands apart from the one around it, in a document of its own: the content of a note, a header
    or footer, a text box. It keeps what reading the text around it goes on with.
*/
struct ORVRtfStory {
    enum Kind { Note, PageText, TextBox };

    Kind kind = Note;
    QSharedPointer<QTextDocument> document;
    /*! Number of open groups; with the innermost of them the story ends. */
    int depth = 0;

    /*! Of a note. */
    ORVRtfNote note;
    /*! The note begins with its number. */
    bool beginsWithNumber = false;
    /*! Of a header or footer. */
    ORVRtfPageTexts::Side side = ORVRtfPageTexts::Header;
    ORVRtfPageTexts::Pages pages = ORVRtfPageTexts::AllPages;

    // The text around it
    QTextDocument* outerDocument = nullptr;
    ORVRtfTextInserter inserter;
    ORVRtfTableBuilder::Tables tables;
    ORVRtfTableBuilder::Place place;
    ORVRtfRunningText text;
    QString fieldInstruction;
    ORVRtfParagraph paragraph;
    /*! Format of the text in front of the group of the story. */
    QTextCharFormat charFormat;
};

#endif
