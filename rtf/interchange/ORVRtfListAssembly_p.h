#ifndef ORVRTFLISTASSEMBLY_P_H
#define ORVRTFLISTASSEMBLY_P_H

#include "ORVTextListCounter.h"

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <QtGui/QTextBlock>

class ORVRtfNumbering;
class QTextDocument;
class QTextList;
struct ORVRtfNumberedList;

/*!
    Makes QTextLists of the paragraphs that cite lists (ORVRtfProperty::ListOverride, ListLevel). Each run of
    items that nothing interrupts becomes one QTextList for each level, and a further one behind each item of a
    higher level, as Qt makes them from HTML. What is cited but is no list is forgotten.
*/
class ORVRtfListAssembly {
public:
    explicit ORVRtfListAssembly(ORVRtfNumbering& numbering) : m_numbering(numbering) { }

    void run(const QTextDocument& document);

private:
    void assemble(const QTextBlock& block);
    void addItem(const QTextBlock& block, QTextBlockFormat format, int number, int level,
                 const ORVRtfNumberedList& list);
    void endRun();

    ORVRtfNumbering& m_numbering;
    QHash<int, ORVTextListCounter> m_counters;

    // The run: its list, and the QTextList of each level that has one.
    int m_number = 0;
    QVector<QTextList*> m_open;
};

#endif
