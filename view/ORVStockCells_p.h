#ifndef ORVSTOCKCELLS_P_H
#define ORVSTOCKCELLS_P_H

#include <QtGui/QTextCharFormat>

/*!
    Converts lines and padding of table cells between the application's form, where they are points, and the stock
    form, where they are pixels. The stock form stores the original values.
*/
namespace ORVStockCells {

/*! Whether \a format is that of a cell and has a line or padding. */
bool hasLook(const QTextCharFormat& format);

/*! The stock form of \a format, for pixels of 1 / \a resolution inch. */
QTextCharFormat stock(const QTextCharFormat& format, int resolution);
/*! The application's form of \a format. One that no stock form is known of has pixels of 1 / \a resolution inch. */
QTextCharFormat application(const QTextCharFormat& format, int resolution);

} // namespace ORVStockCells

#endif
