#ifndef ORVSTOCKPARAGRAPH_P_H
#define ORVSTOCKPARAGRAPH_P_H

#include <QtGui/QTextBlockFormat>

class QTextDocument;
struct ORVStockListItem;

/*!
    Translates paragraph formats between the application's form (points) and the stock form (pixels). Nothing
    is remembered here: see ORVStockFormats.
*/
class ORVStockParagraph {
public:
    /*! For paragraphs of \a document and pixels of which \a resolution make an inch. */
    ORVStockParagraph(const QTextDocument* document, int resolution);

    /*! What \a format of an \a item shows in stock form. */
    QTextBlockFormat stock(const QTextBlockFormat& format, const ORVStockListItem& item) const;

    /*!
        What says in the application's form what \a changed says in stock form: \a format, with all that is in
        \a changed different from \a expected, the stock form of \a format.
    */
    QTextBlockFormat application(const QTextBlockFormat& format, const QTextBlockFormat& expected,
                                 const QTextBlockFormat& changed, const ORVStockListItem& item) const;

    /*! What says in the application's form what \a format says, which has never been in that form. */
    QTextBlockFormat translated(const QTextBlockFormat& format, const ORVStockListItem& item) const;

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
    void setTabs(QTextBlockFormat* result, const QTextBlockFormat& stock) const;
    void setLineSpacing(QTextBlockFormat* result, const QTextBlockFormat& stock) const;

    double m_resolution;
    double m_textWidth;
    double m_indentWidth;
};

#endif
