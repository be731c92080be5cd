#ifndef ORVSTOCKTABLES_P_H
#define ORVSTOCKTABLES_P_H

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <QtGui/QTextTableFormat>

class QTextDocument;
class QTextTable;

/*!
    Translates table formats between the application's form, where lengths are points and widths of columns
    are shares of the text width of the page, and the stock form, where lengths are pixels and widths are
    shares of what surrounds the table. Nothing is remembered in the formats here: see ORVStockFormats.
*/
class ORVStockTables {
public:
    /*! For tables of \a document and pixels of which \a resolution make an inch. */
    ORVStockTables(const QTextDocument* document, int resolution);

    /*! How much of the text width is there for \a table; remember() must know those around it. */
    double availableShare(const QTextTable* table) const;
    /*! Remembers \a format, that of \a table in the application's form, for the tables within it. */
    void remember(const QTextTable* table, const QTextTableFormat& format);

    /*! What \a format, for which there is \a share of the text width, is in stock form. */
    QTextTableFormat stock(const QTextTableFormat& format, double share) const;

    /*!
        What says in the application's form what \a changed says in stock form: \a format, with all that is in
        \a changed different from \a expected, the stock form of \a format.
    */
    QTextTableFormat application(const QTextTableFormat& format, const QTextTableFormat& expected,
                                 const QTextTableFormat& changed, double share) const;

private:
    double m_pixelsPerPoint;
    double m_textWidth;
    QHash<const QTextTable*, QVector<double>> m_columnShares;
};

#endif
