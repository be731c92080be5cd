#ifndef ORVRTFINFORMATION_P_H
#define ORVRTFINFORMATION_P_H

#include <QtCore/QDateTime>
#include <QtCore/QString>

class QTextDocument;

/*! The information about a document: title, author, dates and the like. */
class ORVRtfInformation {
public:
    enum Text {
        Title,
        Author,
        LastAuthor,
        Subject,
        Keywords,
        Comment,
        Manager,
        Company,
        Category,
        TextCount
    };
    enum Date { Created, Modified, Printed, DateCount };

    /*! What follows replaces what was said before. */
    void begin(Text text) { m_texts[text].clear(); }
    void append(Text text, const QString& part);
    void setDate(Date date, const QDateTime& time) { m_dates[date] = time; }

    /*!
        Sets the title of \a document and a dynamic property for each of the others: "author", "lastAuthor",
        "subject", "keywords", "comment", "manager", "company" and "category" (QString), "created",
        "lastModified" and "printed" (QDateTime). What the file does not say is unset, for the document may have been used.
    */
    void setOn(QTextDocument* document) const;

private:
    QString m_texts[TextCount];
    QDateTime m_dates[DateCount];
};

#endif
