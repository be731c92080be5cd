#ifndef ORVTABSTOPS_P_H
#define ORVTABSTOPS_P_H

#include <QtGui/QTextOption>

/*! The distance between the tab stops of a paragraph that has none of its own, in pixels. */
namespace ORVTabStops {

inline double distance(const QTextOption& option)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    return option.tabStopDistance();
#else
    return option.tabStop();
#endif
}

inline void setDistance(QTextOption& option, double pixels)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 10, 0)
    option.setTabStopDistance(pixels);
#else
    option.setTabStop(pixels);
#endif
}

} // namespace ORVTabStops

#endif
