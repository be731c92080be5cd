#ifndef ORVTEXTPAGE_H
#define ORVTEXTPAGE_H

#include "ORVRtfGlobal.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QTextOption>

/*!
    A page header or page footer. A document carries it as its dynamic property "header" or "footer"; the
    type is known to QVariant under the name "ORVTextPage".
*/
class ORV_RTF_EXPORT ORVTextPage {
public:
    ORVTextPage();
    ~ORVTextPage();

    /*!
        What the header or footer says; empty means that there is none. "<$p>" stands for the page number and
        "<$pagecount>" for the number of pages.
    */
    QString text;
    /*! Only the horizontal alignment is used. */
    QTextOption option;
    /*! Font of the whole header or footer. */
    QFont font;
};

Q_DECLARE_METATYPE(ORVTextPage)

#endif
