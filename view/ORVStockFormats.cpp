#include "ORVStockFormats.h"

#include "ORVFragmentFormats_p.h"
#include "ORVFrames_p.h"
#include "ORVRtfProperties.h"
#include "ORVStockCells_p.h"
#include "ORVStockLists_p.h"
#include "ORVStockOriginals_p.h"
#include "ORVStockParagraph_p.h"
#include "ORVStockTables_p.h"
#include "ORVTextListFormat.h"
#include "ORVUnit.h"
#include "QtFormatCompat_p.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>
#include <QtGui/QTextTable>

namespace {

// int: pixels per inch of a format in stock form; 0 for a table or text converted from a stock form that
// toStock() did not make.
const int resolutionProperty = QTextFormat::UserProperty + 310;
// The first of the properties that store original values, in the application's form.
const int firstKeptProperty = QTextFormat::UserProperty + 311;

// The properties that differ between the two forms. Their order decides the ids of the stored values.
const int stockProperties[] = {
    QTextFormat::BlockLeftMargin,
    QTextFormat::BlockRightMargin,
    QTextFormat::BlockTopMargin,
    QTextFormat::BlockBottomMargin,
    QTextFormat::TextIndent,
    QTextFormat::TabPositions,
    QTextFormat::LineHeight,
    QTextFormat::LineHeightType,
    QTextFormat::ListStyle,
    QTextFormat::TextVerticalAlignment,
    QTextFormat::FrameBorder,
    QTextFormat::TableCellPadding,
    QTextFormat::TableColumnWidthConstraints,
    compat::tableBorderCollapse,
    QTextFormat::FrameLeftMargin,
    QTextFormat::FrameRightMargin,
    resolutionProperty,
    // Also Qt's id for the level of a heading.
    ORVRtfProperty::LineSpacing,
    ORVRtfProperty::TabLeaders,
    QTextFormat::FontLetterSpacing,
};
const int stockPropertyCount = int(sizeof(stockProperties) / sizeof(stockProperties[0]));

const int paragraphIndents[] = {ORVRtfProperty::LeftIndent, ORVRtfProperty::RightIndent,
                                ORVRtfProperty::LineSpacing, ORVRtfProperty::LineMultiple};

const double pointsPerInch = 72;

bool isStock(const QTextFormat& format)
{
    return format.intProperty(resolutionProperty) > 0;
}

/*! Whether the stock form has the property as well, unless the paragraph is a heading. */
bool isKeptInPlace(int property)
{
    return property == ORVRtfProperty::LineSpacing;
}

/*! Stores \a application, the format that \a stock was made from, in \a stock. */
template <typename Format>
Format remembering(Format stock, const Format& application, int resolution)
{
    for (int i = 0; i < stockPropertyCount; ++i) {
        const QVariant value = application.property(stockProperties[i]);
        if (value.isValid()
            && !(isKeptInPlace(stockProperties[i]) && stock.property(stockProperties[i]) == value))
            stock.setProperty(firstKeptProperty + i, value);
    }
    stock.setProperty(resolutionProperty, resolution);
    return stock;
}

/*! The format stored in \a stock. Its properties are set in the original order, on which equality depends. */
template <typename Format>
Format remembered(Format stock)
{
    for (int i = 0; i < stockPropertyCount; ++i) {
        const QVariant value = stock.property(firstKeptProperty + i);
        if (value.isValid())
            stock.setProperty(stockProperties[i], value);
        else if (!isKeptInPlace(stockProperties[i]))
            stock.clearProperty(stockProperties[i]);
        stock.clearProperty(firstKeptProperty + i);
    }
    return stock;
}

bool isApplicationParagraph(const QTextBlockFormat& format)
{
    for (const int property : paragraphIndents) {
        if (format.property(property).userType() == QMetaType::Double)
            return true;
    }
    return false;
}

/*! Whether \a format has a property that differs between the two forms; levels of headings do not. */
bool hasStockProperty(const QTextFormat& format)
{
    for (const int property : stockProperties) {
        if (!isKeptInPlace(property) && format.hasProperty(property))
            return true;
    }
    return false;
}

/*! Whether Qt or the level of a list indents the paragraph, besides its margins. */
bool isIndented(const QTextBlockFormat& format, const ORVStockListItem& item)
{
    return format.indent() != 0 || item.indent != 0 || item.hasLevel;
}

/*! The stock form of a shifted baseline. */
QTextCharFormat::VerticalAlignment shiftedAlignment(const QTextCharFormat& format)
{
    return format.intProperty(ORVRtfProperty::BaselineShift) > 0 ? QTextCharFormat::AlignSuperScript
                                                                 : QTextCharFormat::AlignSubScript;
}

bool isShifted(const QTextCharFormat& format)
{
    return format.verticalAlignment() == QTextCharFormat::AlignMiddle
        && format.intProperty(ORVRtfProperty::BaselineShift) != 0;
}

/*! Whether the letters are a length apart; other spacing is a share of their widths. */
bool isSpaced(const QTextCharFormat& format)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return format.hasProperty(QTextFormat::FontLetterSpacing)
        && format.intProperty(QTextFormat::FontLetterSpacingType) == QFont::AbsoluteSpacing;
#else
    Q_UNUSED(format);
    return false;
#endif
}

/*! \a format with \a factor times the letter spacing, if it is a length. */
QTextCharFormat scaled(QTextCharFormat format, double factor)
{
    const int property = QTextFormat::FontLetterSpacing;
    if (isSpaced(format))
        format.setProperty(property, format.doubleProperty(property) * factor);
    return format;
}

QTextCharFormat stockText(const QTextCharFormat& format, int resolution)
{
    if (isStock(format) || (!isShifted(format) && !isSpaced(format)))
        return format;
    QTextCharFormat stock = scaled(format, resolution / pointsPerInch);
    if (isShifted(format))
        stock.setVerticalAlignment(shiftedAlignment(format));
    return remembering(stock, format, resolution);
}

/*! The application's form of \a format, which \a application was in stock form. */
QTextCharFormat changedText(QTextCharFormat application, const QTextCharFormat& format)
{
    const int resolution = format.intProperty(resolutionProperty);
    const bool wasShifted = isShifted(application);
    const QTextCharFormat expected = scaled(application, resolution / pointsPerInch);
    const int spacing = QTextFormat::FontLetterSpacing;
    if (expected.property(spacing) != format.property(spacing)) {
        const QTextCharFormat changed = scaled(format, pointsPerInch / resolution);
        application.setProperty(spacing, changed.property(spacing));
    }
    if (!wasShifted || format.verticalAlignment() != shiftedAlignment(format))
        application.setProperty(QTextFormat::TextVerticalAlignment,
                                format.property(QTextFormat::TextVerticalAlignment));
    if (wasShifted && format.verticalAlignment() != shiftedAlignment(format))
        application.clearProperty(ORVRtfProperty::BaselineShift);
    return application;
}

/*! Spacing that has always been in pixels is marked once it is in points, as nothing else distinguishes the two. */
QTextCharFormat applicationText(const QTextCharFormat& format, int resolution)
{
    if (isStock(format))
        return changedText(remembered(format), format);
    if (!isSpaced(format) || format.hasProperty(resolutionProperty))
        return format;
    QTextCharFormat application = scaled(format, pointsPerInch / resolution);
    application.setProperty(resolutionProperty, 0);
    return application;
}

/*! Whether no level of the list has a marker, although Qt would show one. */
bool showsNoMarkers(const QTextListFormat& format)
{
    QTextListFormat unstyled(format);
    unstyled.setStyle(QTextListFormat::ListStyleUndefined);
    const QList<ORVTextListLevel> levels = ORVTextListFormat::levels(unstyled);
    for (const ORVTextListLevel& level : levels) {
        if (!level.text().isEmpty())
            return false;
    }
    return !levels.isEmpty();
}

QTextListFormat stockList(const QTextListFormat& format, int resolution)
{
    if (isStock(format) || !showsNoMarkers(format))
        return format;
    QTextListFormat stock(format);
    stock.setStyle(QTextListFormat::ListStyleUndefined);
    return remembering(stock, format, resolution);
}

QTextListFormat applicationList(const QTextListFormat& format)
{
    if (!isStock(format))
        return format;
    QTextListFormat application = remembered(format);
    if (format.style() != QTextListFormat::ListStyleUndefined)
        application.setStyle(format.style());
    return application;
}

/*! Converts all formats of a document in one pass. */
class Conversion {
public:
    enum Direction { ToStock, FromStock };

    Conversion(QTextDocument* document, Direction direction)
        : m_document(document), m_direction(direction), m_resolution(ORVUnit::screenResolution()),
          m_paragraph(document, m_resolution), m_tables(document, m_resolution)
    {
    }

    void run()
    {
        QTextCursor cursor(m_document);
        cursor.beginEditBlock();
        convertBlocks(cursor);
        convertLists();
        convertTables();
        cursor.endEditBlock();
    }

private:
    void convertBlocks(QTextCursor& cursor);
    void convertLists();
    void convertTables();
    QTextTableFormat stockTable(const QTextTable* table);
    QTextTableFormat applicationTable(const QTextTable* table);
    QTextBlockFormat paragraph(const QTextBlockFormat& format, const ORVStockListItem& item) const;
    QTextBlockFormat stockParagraph(const QTextBlockFormat& format, const ORVStockListItem& item) const;
    QTextBlockFormat applicationParagraph(const QTextBlockFormat& format, const ORVStockListItem& item) const;
    QTextCharFormat text(const QTextCharFormat& format) const;

    QTextDocument* m_document;
    Direction m_direction;
    int m_resolution;
    ORVStockParagraph m_paragraph;
    ORVStockLists m_lists;
    ORVStockTables m_tables;
    QSet<QTextList*> m_usedLists;
};

/*! Stores the original of every format that applicationParagraph() would convert. */
QTextBlockFormat Conversion::stockParagraph(const QTextBlockFormat& format,
                                            const ORVStockListItem& item) const
{
    if (isStock(format)
        || (!isApplicationParagraph(format) && !hasStockProperty(format) && !isIndented(format, item)))
        return format;
    return remembering(m_paragraph.stock(format, item), format, m_resolution);
}

QTextBlockFormat Conversion::applicationParagraph(const QTextBlockFormat& format,
                                                  const ORVStockListItem& item) const
{
    if (isStock(format)) {
        const ORVStockParagraph paragraph(m_document, format.intProperty(resolutionProperty));
        const QTextBlockFormat application = remembered(format);
        return paragraph.application(application, paragraph.stock(application, item), format, item);
    }
    if (isApplicationParagraph(format) || (!hasStockProperty(format) && !isIndented(format, item)))
        return format;
    return m_paragraph.translated(format, item);
}

QTextBlockFormat Conversion::paragraph(const QTextBlockFormat& format, const ORVStockListItem& item) const
{
    return m_direction == ToStock ? stockParagraph(format, item) : applicationParagraph(format, item);
}

QTextCharFormat Conversion::text(const QTextCharFormat& format) const
{
    const bool isToStock = m_direction == ToStock;
    QTextCharFormat result =
        isToStock ? stockText(format, m_resolution) : applicationText(format, m_resolution);
    if (!ORVStockCells::hasLook(format))
        return result;
    return isToStock ? ORVStockCells::stock(result, m_resolution)
                     : ORVStockCells::application(result, m_resolution);
}

/*! Converts each paragraph format once: paragraphs that share a format share the list too. */
void Conversion::convertBlocks(QTextCursor& cursor)
{
    QHash<int, QTextBlockFormat> converted;
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        const int index = block.blockFormatIndex();
        const QTextBlockFormat format = block.blockFormat();
        if (!converted.contains(index)) {
            QTextList* const list = block.textList();
            if (list)
                m_usedLists.insert(list);
            converted.insert(index, paragraph(format, m_lists.item(list, format)));
        }
        cursor.setPosition(block.position());
        const QTextBlockFormat& result = *converted.constFind(index);
        if (result != format)
            cursor.setBlockFormat(result);
        ORVFragmentFormats::change(cursor, block,
                                   [this](const QTextCharFormat& format) { return text(format); });
    }
}

void Conversion::convertLists()
{
    const QSet<QTextList*>& lists = m_usedLists;
    for (QTextList* const list : lists) {
        const QTextListFormat format = list->format();
        const QTextListFormat result =
            m_direction == ToStock ? stockList(format, m_resolution) : applicationList(format);
        if (result != format)
            list->setFormat(result);
    }
}

void Conversion::convertTables()
{
    const QList<QTextFrame*> frames = ORVFrames::all(m_document);
    for (QTextFrame* const frame : frames) {
        QTextTable* const table = qobject_cast<QTextTable*>(frame);
        if (!table)
            continue;
        const QTextTableFormat format = table->format();
        const QTextTableFormat result = m_direction == ToStock ? stockTable(table) : applicationTable(table);
        if (result != format)
            table->setFormat(result);
    }
}

QTextTableFormat Conversion::stockTable(const QTextTable* table)
{
    QTextTableFormat format = table->format();
    m_tables.remember(table, isStock(format) ? remembered(format) : format);
    if (isStock(format))
        return format;
    return remembering(m_tables.stock(format, m_tables.availableShare(table)), format, m_resolution);
}

QTextTableFormat Conversion::applicationTable(const QTextTable* table)
{
    const QTextTableFormat format = table->format();
    const double share = m_tables.availableShare(table);
    QTextTableFormat result = format;
    if (isStock(format)) {
        const ORVStockTables tables(m_document, format.intProperty(resolutionProperty));
        result = remembered(format);
        result = tables.application(result, tables.stock(result, share), format, share);
    } else if (!format.hasProperty(resolutionProperty)) {
        result = m_tables.application(format, QTextTableFormat(), format, share);
        result.setProperty(resolutionProperty, 0);
    }
    m_tables.remember(table, result);
    return result;
}

} // namespace

bool ORVStockOriginals::isStock(const QTextFormat& format)
{
    return ::isStock(format);
}

QTextBlockFormat ORVStockOriginals::original(const QTextBlockFormat& format)
{
    return remembered(format);
}

QTextTableFormat ORVStockOriginals::original(const QTextTableFormat& format)
{
    return isStock(format) ? remembered(format) : format;
}

void ORVStockFormats::toStock(QTextDocument* document)
{
    if (document)
        Conversion(document, Conversion::ToStock).run();
}

void ORVStockFormats::fromStock(QTextDocument* document)
{
    if (document)
        Conversion(document, Conversion::FromStock).run();
}
