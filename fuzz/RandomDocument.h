#ifndef RANDOMDOCUMENT_H
#define RANDOMDOCUMENT_H

#include "FuzzInput.h"

#include <QtGui/QTextCursor>

class QTextList;
class QTextTable;

/*! Fills a document with whatever documents can hold, as the bytes of an input decide. */
class RandomDocument {
public:
    /*! \a document and \a input stay the caller's. */
    RandomDocument(QTextDocument* document, FuzzInput& input);

    void fill();

private:
    void addContent(int depth);
    void addPiece(int depth);
    void addParagraph();
    void addPicture();
    void addListItem();
    void addTable(int depth);
    void addFrame(int depth);
    void mergeCells(QTextTable* table);
    void setPageProperties();

    QTextCharFormat charFormat();
    QTextBlockFormat blockFormat();
    QVariant value();
    void setNote(QTextCharFormat& format);
    void setAnyProperties(QTextFormat& format, const int* ids, int count);

    QTextDocument* m_document;
    FuzzInput& m_input;
    QTextCursor m_cursor;
    QTextList* m_list = nullptr;
};

#endif
