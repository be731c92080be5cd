#ifndef ORVRTF_CHANGENAMES_H
#define ORVRTF_CHANGENAMES_H

#include "Symbols.h"

#include <QStringList>
#include <QVector>

/*! Numbers for changes of formats, which are texts for people. */
class ChangeNames {
public:
    /*! The number of \a change. \a isOfText: only paragraphs that have text can have it. */
    int number(const QString& change, bool isOfText)
    {
        const int number = m_symbols.of(change);
        if (number == m_names.size()) {
            m_names.append(change);
            m_areOfText.append(isOfText);
        }
        return number;
    }

    QVector<int> numbers(const QStringList& changes, bool areOfText)
    {
        QVector<int> result;
        for (const QString& change : changes)
            result.append(number(change, areOfText));
        return result;
    }

    QString name(int number) const { return m_names.at(number); }
    bool isOfText(int number) const { return m_areOfText.at(number); }

private:
    Symbols m_symbols;
    QStringList m_names;
    QVector<bool> m_areOfText;
};

#endif
