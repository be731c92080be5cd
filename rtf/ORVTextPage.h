#ifndef ORVTEXTPAGE_H
#define ORVTEXTPAGE_H

#include "ORVRtfGlobal.h"

#include <QtCore/QMetaType>
#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QTextOption>

/*!
    A page header or footer. A document stores it in its dynamic property "header" or "footer". QVariant knows
    the type under the name "ORVTextPage".
*/
class ORV_RTF_EXPORT ORVTextPage {
public:
    ORVTextPage();
    ~ORVTextPage();

    /*!
        The text; empty for no header or footer. "<$p>" is replaced by the page number and "<$pagecount>" by
        the number of pages.
    */
    QString text;
    /*! Only the horizontal alignment is used. */
    QTextOption option;
    /*! Font of the whole header or footer. */
    QFont font;
};

Q_DECLARE_METATYPE(ORVTextPage)

#endif
