#ifndef ORVFORMAT_H
#define ORVFORMAT_H

/*! Document formats that TextTransform converts to. The numbers are part of the interface. */
namespace ORVFormat {

/*! Plain text, HTML, OpenDocument text and Rich Text Format. */
enum Format : int { PlainText = 1, Html = 2, Odt = 3, Rtf = 4 };

} // namespace ORVFormat

#endif
