#ifndef ORVSTOCKORIGINALS_P_H
#define ORVSTOCKORIGINALS_P_H

class QTextBlockFormat;

/*! The formats that formats in stock form were made from, see ORVStockFormats. */
namespace ORVStockOriginals {

/*! Whether \a format was made by ORVStockFormats::toStock(). */
bool isStock(const QTextBlockFormat& format);
/*! The format in the application's form that such a format was made from. */
QTextBlockFormat original(const QTextBlockFormat& format);

} // namespace ORVStockOriginals

#endif
