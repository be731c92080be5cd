#ifndef ORVSTOCKPARAGRAPH_P_H
#define ORVSTOCKPARAGRAPH_P_H

#include <QtGui/QTextBlockFormat>

class QTextDocument;
struct ORVStockListItem;

/*!
    Converts paragraph formats between the application's form (points) and the stock form (pixels). Storing
    the original format is up to ORVStockFormats.
*/
class ORVStockParagraph {
public:
    /*! For paragraphs of \a document and pixels of 1 / \a resolution inch. */
    ORVStockParagraph(const QTextDocument* document, int resolution);

    /*! The stock form of \a format, which belongs to \a item. */
    QTextBlockFormat stock(const QTextBlockFormat& format, const ORVStockListItem& item) const;

    /*!
        \a format with those properties updated in which \a changed differs from \a expected, the stock form
        of \a format.
    */
    QTextBlockFormat application(const QTextBlockFormat& format, const QTextBlockFormat& expected,
                                 const QTextBlockFormat& changed, const ORVStockListItem& item) const;

    /*! The application's form of \a format, which has always been in stock form. */
    QTextBlockFormat translated(const QTextBlockFormat& format, const ORVStockListItem& item) const;

    /*! Where the first line of \a format begins, from the left indent, in pixels. A label stands there. */
    double firstLineOffset(const QTextBlockFormat& format, const ORVStockListItem& item) const;

private:
    double pixels(double points) const { return points * m_resolution / 72; }
    double stockLength(double points) const;
    double points(double pixels) const { return pixels * 72 / m_resolution; }
    double listPixels(const QTextBlockFormat& format, const ORVStockListItem& item) const;

    void setStockIndents(QTextBlockFormat* stock, const ORVStockListItem& item) const;
    void setStockTabs(QTextBlockFormat* stock, double left, double firstLine) const;
    void setStockLineHeight(QTextBlockFormat* stock) const;
    void setStockSpacing(QTextBlockFormat* stock, int property) const;
    void scale(QTextBlockFormat* format, int property, double factor) const;

    void setLeftIndents(QTextBlockFormat* result, const QTextBlockFormat& stock, const ORVStockListItem& item,
                        bool isLeftChanged, bool isFirstLineChanged) const;
    void setRightIndent(QTextBlockFormat* result, const QTextBlockFormat& stock,
                        const ORVStockListItem& item) const;
    void setTabs(QTextBlockFormat* result, const QTextBlockFormat& stock, const ORVStockListItem& item) const;
    void setLineSpacing(QTextBlockFormat* result, const QTextBlockFormat& stock) const;
    void setSpacing(QTextBlockFormat* result, double height, int type) const;

    double m_resolution;
    double m_textWidth;
    double m_indentWidth;
};

#endif
