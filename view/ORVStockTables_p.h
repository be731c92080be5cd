#ifndef ORVSTOCKTABLES_P_H
#define ORVSTOCKTABLES_P_H

#include <QtCore/QHash>
#include <QtCore/QVector>
#include <QtGui/QTextTableFormat>

class QTextDocument;
class QTextTable;

/*!
    Converts table formats between the application's form, where lengths are points and column widths are
    percentages of the page's text width, and the stock form, where lengths are pixels and widths are
    percentages of the surrounding cell. Storing the original format is up to ORVStockFormats.
*/
class ORVStockTables {
public:
    /*! For tables of \a document and pixels of 1 / \a resolution inch. */
    ORVStockTables(const QTextDocument* document, int resolution);

    /*!
        The share of the text width available to \a table, from 0 to 1. remember() must have been called for
        the tables around it.
    */
    double availableShare(const QTextTable* table) const;
    /*! Remembers \a format, that of \a table in the application's form, for the tables within it. */
    void remember(const QTextTable* table, const QTextTableFormat& format);

    /*! The stock form of \a format, which has \a share of the text width. */
    QTextTableFormat stock(const QTextTableFormat& format, double share) const;

    /*!
        \a format with those properties updated in which \a changed differs from \a expected, the stock form
        of \a format.
    */
    QTextTableFormat application(const QTextTableFormat& format, const QTextTableFormat& expected,
                                 const QTextTableFormat& changed, double share) const;

private:
    void setStockMargins(QTextTableFormat* format) const;

    double m_pixelsPerPoint;
    double m_textWidth;
    QHash<const QTextTable*, QVector<double>> m_columnShares;
};

#endif
