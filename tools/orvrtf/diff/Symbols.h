#ifndef ORVRTF_SYMBOLS_H
#define ORVRTF_SYMBOLS_H

#include <QHash>
#include <QString>

/*! Numbers for texts: equal ones, of whichever document, have the same. */
class Symbols {
public:
    int of(const QString& text)
    {
        const auto known = m_numbers.constFind(text);
        if (known != m_numbers.constEnd())
            return *known;
        const int number = int(m_numbers.size());
        m_numbers.insert(text, number);
        return number;
    }

private:
    QHash<QString, int> m_numbers;
};

#endif
