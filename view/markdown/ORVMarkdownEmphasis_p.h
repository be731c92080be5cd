#ifndef ORVMARKDOWNEMPHASIS_P_H
#define ORVMARKDOWNEMPHASIS_P_H

#include <QtCore/QString>
#include <QtCore/QVector>

/*!
    Finds out whether the delimiters of emphasis and strike-out in a paragraph mean what they are to mean, by the rules
    that readers of Markdown have: they look at the characters around a run of delimiters, and at the lengths of runs.
*/
class ORVMarkdownEmphasis {
public:
    /*! Begins with \a text still empty. */
    explicit ORVMarkdownEmphasis(const QString& text) : m_text(text) { }

    /*! Begins anew. */
    void clear();
    /*! The next \a count of delimiters end the text: they begin the element \a element, or end it. */
    void add(int element, QChar delimiter, int count, bool isBegin);
    /*! Delimiters within a link and those around it do not see each other. */
    void beginLink();
    void endLink();

    /*! The elements that readers would not find, once the text is complete. */
    QVector<int> lost() const;

private:
    struct Run {
        QChar delimiter;
        int position = 0;
        int length = 0;
    };
    struct Element {
        int number = 0;
        int begin = 0;
        int end = 0;
        int length = 0;
    };
    enum Step { BeginLink = -1, EndLink = -2 };
    class Matching;

    QVector<int> lost(bool symbolsArePunctuation) const;

    const QString& m_text;
    QVector<Run> m_runs;
    QVector<Element> m_elements;
    // Indexes of open ones.
    QVector<int> m_open;
    // Indexes of runs, and the ends of links.
    QVector<int> m_steps;
};

#endif
