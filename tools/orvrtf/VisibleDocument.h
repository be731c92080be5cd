#ifndef ORVRTF_VISIBLEDOCUMENT_H
#define ORVRTF_VISIBLEDOCUMENT_H

class QTextDocument;

/*!
    Replaces what Qt's layout and its writers cannot show in \a document, which is in stock form (see
    ORVStockFormats): items of lists without a marker become plain paragraphs, levels of lists become lists,
    and a picture that the document does not hold becomes an empty one, so that no file is read for it,
    whatever its name.
*/
void makeVisible(QTextDocument& document);

/*! The part of it that concerns pictures. */
void makePicturesVisible(QTextDocument& document);

#endif
