#ifndef ORVRTF_PICTURECOMPARISON_H
#define ORVRTF_PICTURECOMPARISON_H

#include <QHash>
#include <QPair>
#include <QStringList>

class QTextDocument;
class QTextImageFormat;

/*! Compares the pictures of two documents. */
class PictureComparison {
public:
    PictureComparison(const QTextDocument* before, const QTextDocument* after)
        : m_before(before), m_after(after)
    {
    }

    /*! What is different in \a after, in words. */
    QStringList changes(const QTextImageFormat& before, const QTextImageFormat& after);

private:
    QStringList imageChanges(const QTextImageFormat& before, const QTextImageFormat& after);

    const QTextDocument* m_before;
    const QTextDocument* m_after;
    // By the names of both: a picture can be shown many times.
    QHash<QPair<QString, QString>, QStringList> m_known;
};

#endif
