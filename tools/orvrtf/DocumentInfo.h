#ifndef ORVRTF_DOCUMENTINFO_H
#define ORVRTF_DOCUMENTINFO_H

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

class QTextDocument;

/*! The description of a document, and counts of its content. */
struct DocumentInfo {
    struct Link {
        QString text;
        QString target;
    };

    /*! A text or date that describes the document: title, author, header … */
    struct Description {
        /*! Name of the member in JSON. */
        QString key;
        /*! Label in the output. */
        QString name;
        QString text;
    };

    /*! Those that the document has. */
    QVector<Description> descriptions;
    /*! All paragraphs, also empty ones and those of table cells. */
    int paragraphs = 0;
    /*! Runs of characters other than white space. */
    int words = 0;
    /*! Characters, spaces included; paragraph ends and pictures are none. */
    int characters = 0;
    /*! Families that text is set in, sorted. */
    QStringList fonts;
    int pictures = 0;
    QVector<Link> links;
    int footnotes = 0;
    int endnotes = 0;
    int annotations = 0;
    /*! Tables, also those within tables. */
    int tables = 0;
    /*! QTextLists that are levels or parts of one list count as one. */
    int lists = 0;

    explicit DocumentInfo(const QTextDocument& document);

    /*! All of it as lines of text for people. */
    QString toText() const;
    /*! A line as toText() has them: \a name, \a number, and \a detail in parentheses where there is one. */
    static QString line(const QString& name, int number, const QString& detail = QString());
    static QString line(const QString& name, const QString& text);
    /*! All of it as JSON, with the fonts and links one by one. */
    QJsonObject toJson() const;
};

#endif
