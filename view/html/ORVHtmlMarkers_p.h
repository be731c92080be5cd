#ifndef ORVHTMLMARKERS_P_H
#define ORVHTMLMARKERS_P_H

#include "ORVTextListLabels.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QVector>

class ORVHtmlOutput;
class QTextBlock;

/*! How a list shows its items. */
struct ORVHtmlMarker {
    /*! Whether a number stands in front of each item. */
    bool isNumbered = false;
    /*! The value of "type", for the kinds of numbers that HTML has, but for decimal ones; 0 for others. */
    char type = 0;
    /*! The value of "list-style-type" where "type" is not enough; empty where it does. */
    QByteArray style;
    /*! Whether that value is the item's own one, since it has the numbers of several levels. */
    bool isOwn = false;
};

/*! The markers of lists as HTML and CSS have them. */
class ORVHtmlMarkers {
public:
    /*! The marker of \a block, whose label is \a label. A counter style that it needs is added. */
    ORVHtmlMarker marker(const QTextBlock& block, const ORVTextListLabels::Label& label);
    /*! Writes the rules of the counter styles. */
    void write(ORVHtmlOutput& output) const;

private:
    QByteArray counterStyle(const QByteArray& system, const QString& prefix, const QString& suffix);

    QHash<QByteArray, QByteArray> m_names;
    // In the order in which they are needed.
    QVector<QByteArray> m_rules;
};

#endif
