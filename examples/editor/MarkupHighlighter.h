#ifndef MARKUPHIGHLIGHTER_H
#define MARKUPHIGHLIGHTER_H

#include <QSyntaxHighlighter>

/*!
    Shows what formats mean beyond their looks: colours of revision levels, links, and text with notes.

    It is only shown: the formats of the document, and so what is saved, stay as they are.
*/
class MarkupHighlighter : public QSyntaxHighlighter {
    Q_OBJECT

public:
    explicit MarkupHighlighter(QObject* parent);

    /*! What \a format, of text in a document, looks like besides its own properties. */
    static QTextCharFormat markup(const QTextCharFormat& format);

protected:
    void highlightBlock(const QString& text) override;
};

#endif
