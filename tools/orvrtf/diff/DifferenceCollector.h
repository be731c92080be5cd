#ifndef ORVRTF_DIFFERENCECOLLECTOR_H
#define ORVRTF_DIFFERENCECOLLECTOR_H

#include "ChangeNames.h"
#include "Difference.h"

/*! Takes the differences that a comparison finds, in the order of the text. */
class DifferenceCollector {
public:
    ChangeNames* names() { return &m_names; }

    /*! A number for what comes next in the order of the text. */
    int nextOrder() { return ++m_order; }
    /*! A paragraph at \a place whose text is changed. */
    void addText(const Place& place, int order, const QVector<TextPiece>& pieces);
    /*! \a piece at \a place that only one of the documents has; several in a row become one difference. */
    void addOneSided(const Place& place, const TextPiece& piece);
    /*! \a changes of \a words at \a place, or of all of it if they are empty. */
    void addChanges(const Place& place, int order, const QStringList& changes,
                    const QString& words = QString());
    void add(const QVector<Difference>& differences);

    /*! All differences, in the order of the text; changes that very many places have are put together. */
    Differences take();

private:
    void countWords();
    void takeFrequent();

    ChangeNames m_names;
    Differences m_result;
    int m_order = 0;
};

#endif
