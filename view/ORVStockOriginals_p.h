#ifndef ORVSTOCKORIGINALS_P_H
#define ORVSTOCKORIGINALS_P_H

class QTextBlockFormat;
class QTextFormat;
class QTextTableFormat;

/*! The formats that formats in stock form were made from, see ORVStockFormats. */
namespace ORVStockOriginals {

/*! Whether \a format was made by ORVStockFormats::toStock(). */
bool isStock(const QTextFormat& format);
/*! The format in the application's form that such a format was made from. */
QTextBlockFormat original(const QTextBlockFormat& format);
/*! The same for a table; one in another form is returned as it is. */
QTextTableFormat original(const QTextTableFormat& format);

} // namespace ORVStockOriginals

#endif
