#include "RandomDocument.h"

#include "ORVRtfProperties.h"
#include "ORVTextListFormat.h"
#include "ORVTextListLevel.h"
#include "ORVTextPage.h"

#include <QtCore/QSizeF>
#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtGui/QBrush>
#include <QtGui/QFont>
#include <QtGui/QImage>
#include <QtGui/QPen>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>
#include <QtGui/QTextTable>

using namespace ORVRtfProperty;

namespace {

// Bounds that keep one document small enough for many of them in a second.
const int mostPieces = 24;
const int deepestNesting = 14;
const int mostRows = 5;
const int mostColumns = 6;
const int longestText = 40;
const int longestData = 200;
const int picturesInStock = 3;

const int charProperties[] = {QTextFormat::FontFamily,
                              QTextFormat::FontPointSize,
                              QTextFormat::FontPixelSize,
                              QTextFormat::FontWeight,
                              QTextFormat::FontItalic,
                              QTextFormat::FontStrikeOut,
                              QTextFormat::FontFixedPitch,
                              QTextFormat::FontCapitalization,
                              QTextFormat::TextUnderlineStyle,
                              QTextFormat::TextUnderlineColor,
                              QTextFormat::TextVerticalAlignment,
                              QTextFormat::TextOutline,
                              QTextFormat::ForegroundBrush,
                              QTextFormat::BackgroundBrush,
                              QTextFormat::IsAnchor,
                              QTextFormat::AnchorHref,
                              HasNoteContent,
                              NoteContent,
                              RevisionLevel,
                              BaselineShift,
                              InAnnotation,
                              InFootnote,
                              AnnotationAnchor,
                              FootnoteAnchor,
                              BookmarkName,
                              PageReference};
const int blockProperties[] = {QTextFormat::BlockAlignment,
                               QTextFormat::BlockTopMargin,
                               QTextFormat::BlockBottomMargin,
                               QTextFormat::TextIndent,
                               QTextFormat::TabPositions,
                               QTextFormat::LayoutDirection,
                               QTextFormat::PageBreakPolicy,
                               ListOverride,
                               ListLevel,
                               LeftIndent,
                               RightIndent,
                               LineSpacing,
                               LineMultiple};
const int imageProperties[] = {QTextFormat::ImageWidth,
                               QTextFormat::ImageHeight,
                               QTextFormat::TextVerticalAlignment,
                               MathML,
                               PdfData,
                               PdfFileName,
                               SourceImageData,
                               ImageType,
                               ImageFileName,
                               BaselineShift};
const int tableProperties[] = {QTextFormat::FrameBorder,      QTextFormat::FrameBorderBrush,
                               QTextFormat::FrameBorderStyle, QTextFormat::TableCellPadding,
                               QTextFormat::TableCellSpacing, QTextFormat::TableColumnWidthConstraints};

template <int size>
int countOf(const int (&)[size])
{
    return size;
}

QString pictureName(int number)
{
    return QString::fromLatin1("picture%1").arg(number);
}

} // namespace

RandomDocument::RandomDocument(QTextDocument* document, FuzzInput& input)
    : m_document(document), m_input(input), m_cursor(document)
{
    for (int i = 0; i < picturesInStock; ++i)
        document->addResource(QTextDocument::ImageResource, QUrl(pictureName(i)),
                              QImage(i, 2, QImage::Format_ARGB32));
}

void RandomDocument::fill()
{
    setPageProperties();
    m_cursor.beginEditBlock();
    addContent(0);
    m_cursor.endEditBlock();
}

void RandomDocument::addContent(int depth)
{
    for (int pieces = m_input.choice(mostPieces); pieces > 0 && !m_input.isEmpty(); --pieces)
        addPiece(depth);
}

void RandomDocument::addPiece(int depth)
{
    switch (m_input.choice(8)) {
    case 0:
    case 1: m_cursor.insertText(m_input.text(longestText), charFormat()); break;
    case 2: m_cursor.insertText(m_input.text(4), m_cursor.charFormat()); break;
    case 3: addParagraph(); break;
    case 4: addPicture(); break;
    case 5: addListItem(); break;
    case 6: addTable(depth); break;
    default: addFrame(depth); break;
    }
}

void RandomDocument::addParagraph()
{
    if (m_input.flag())
        m_cursor.insertBlock(blockFormat(), charFormat());
    else
        m_cursor.insertBlock();
}

void RandomDocument::addPicture()
{
    QTextImageFormat format;
    format.merge(charFormat());
    // One of the names stands for no picture.
    format.setName(pictureName(m_input.choice(picturesInStock + 1)));
    setAnyProperties(format, imageProperties, countOf(imageProperties));
    m_cursor.insertImage(format);
}

void RandomDocument::addListItem()
{
    if (!m_list || m_input.choice(4) == 0) {
        QTextListFormat format;
        format.setStyle(QTextListFormat::Style(-m_input.choice(9)));
        QList<ORVTextListLevel> levels;
        for (int count = m_input.choice(11); count > 0; --count) {
            ORVTextListLevel level;
            level.setText(m_input.text(8) + QLatin1Char('%') + QString::number(m_input.integer()));
            level.setKind(unsigned(m_input.choice(8)));
            level.setIndent(m_input.real());
            level.setFirstLinePosition(m_input.real());
            levels << level;
        }
        ORVTextListFormat::setLevels(format, levels);
        m_list = m_cursor.createList(format);
    } else {
        m_list->add(m_cursor.block());
    }
    ORVTextListFormat::setBlockLevel(m_list, m_cursor.block(), m_input.integer());
}

void RandomDocument::addTable(int depth)
{
    if (depth >= deepestNesting)
        return;
    QTextTableFormat format;
    setAnyProperties(format, tableProperties, countOf(tableProperties));
    QTextTable* const table =
        m_cursor.insertTable(1 + m_input.choice(mostRows), 1 + m_input.choice(mostColumns), format);
    for (int merges = m_input.choice(4); merges > 0; --merges)
        mergeCells(table);
    for (int cells = m_input.choice(8); cells > 0; --cells) {
        QTextTableCell cell = table->cellAt(m_input.choice(table->rows()), m_input.choice(table->columns()));
        if (m_input.flag())
            cell.setFormat(charFormat());
        m_cursor = cell.lastCursorPosition();
        addPiece(depth + 1);
    }
    m_cursor = m_input.flag() ? QTextCursor(m_document) : table->lastCursorPosition();
    m_cursor.movePosition(m_input.flag() ? QTextCursor::End : QTextCursor::NextCharacter);
}

void RandomDocument::addFrame(int depth)
{
    if (depth >= deepestNesting)
        return;
    const QTextFrame* const frame = m_cursor.insertFrame(QTextFrameFormat());
    addPiece(depth + 1);
    m_cursor = frame->lastCursorPosition();
    m_cursor.movePosition(QTextCursor::NextCharacter);
}

void RandomDocument::mergeCells(QTextTable* table)
{
    const int row = m_input.choice(table->rows());
    const int column = m_input.choice(table->columns());
    table->mergeCells(row, column, 1 + m_input.choice(table->rows() - row),
                      1 + m_input.choice(table->columns() - column));
}

void RandomDocument::setPageProperties()
{
    const char* const lengths[] = {"topMargin", "leftMargin", "rightMargin", "bottomMargin"};
    for (const char* name : lengths) {
        if (m_input.choice(4) == 0)
            m_document->setProperty(name, value());
    }
    if (m_input.choice(4) == 0)
        m_document->setProperty("paperSize", QSizeF(m_input.real(), m_input.real()));
    const char* const pages[] = {"header", "footer"};
    for (const char* name : pages) {
        if (m_input.choice(4) != 0)
            continue;
        ORVTextPage page;
        page.text = m_input.text(longestText);
        page.option.setAlignment(Qt::Alignment(m_input.choice(16)));
        page.font = charFormat().font();
        m_document->setProperty(name, m_input.flag() ? QVariant::fromValue(page) : value());
    }
    m_document->setProperty("notOnFirstPage", m_input.flag());
    m_document->setProperty("countFirstPage", value());
}

/*! A format of a few properties, most of them of the type they should have. */
QTextCharFormat RandomDocument::charFormat()
{
    QTextCharFormat format;
    if (m_input.flag())
        return format;
    format.setFontFamily(m_input.flag() ? QString::fromLatin1("Sans") : m_input.text(6));
    if (m_input.flag())
        format.setFontWeight(m_input.integer());
    if (m_input.flag())
        format.setForeground(QColor::fromRgb(QRgb(m_input.integer())));
    if (m_input.flag()) {
        format.setAnchor(true);
        format.setAnchorHref(m_input.text(longestText));
    }
    if (m_input.flag())
        setNote(format);
    setAnyProperties(format, charProperties, countOf(charProperties));
    return format;
}

QTextBlockFormat RandomDocument::blockFormat()
{
    QTextBlockFormat format;
    setAnyProperties(format, blockProperties, countOf(blockProperties));
    return format;
}

/*! A value of any type that a format may hold, whether it fits or not. */
QVariant RandomDocument::value()
{
    switch (m_input.choice(9)) {
    case 0: return m_input.flag();
    case 1: return m_input.integer();
    case 2: return m_input.real();
    case 3: return m_input.text(longestText);
    case 4: return m_input.bytes(longestData);
    case 5: return QBrush(QColor(m_input.choice(256), m_input.choice(256), 0));
    case 6: return QPen(QColor(Qt::black), m_input.real());
    case 7: {
        QList<QVariant> tabs;
        for (int count = m_input.choice(4); count > 0; --count)
            tabs << QVariant::fromValue(
                QTextOption::Tab(m_input.real(), QTextOption::TabType(m_input.choice(4))));
        return tabs;
    }
    default: {
        QVector<QTextLength> lengths;
        for (int count = m_input.choice(mostColumns + 1); count > 0; --count)
            lengths << QTextLength(QTextLength::Type(m_input.choice(3)), m_input.real());
        return QVariant::fromValue(lengths);
    }
    }
}

/*! Makes \a format the anchor or the text of a note. */
void RandomDocument::setNote(QTextCharFormat& format)
{
    const int flags[] = {InAnnotation, InFootnote, AnnotationAnchor, FootnoteAnchor};
    format.setProperty(flags[m_input.choice(4)], true);
    format.setProperty(HasNoteContent, true);
    format.setProperty(NoteContent, QByteArray("{\\rtf1 " + m_input.bytes(longestText) + "}"));
    format.setProperty(BookmarkName, m_input.text(4));
}

void RandomDocument::setAnyProperties(QTextFormat& format, const int* ids, int count)
{
    for (int properties = m_input.choice(4); properties > 0; --properties) {
        const int id = ids[m_input.choice(count)];
        format.setProperty(id, value());
    }
}
