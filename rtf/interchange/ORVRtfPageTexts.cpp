#include "ORVRtfPageTexts_p.h"

#include "ORVRtfLimits_p.h"
#include "QtFontCompat_p.h"

#include <QtCore/QVariant>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextTable>

namespace {

const char* const properties[] = {"header", "footer"};

/*! What stands between \a block and the one behind it: cells of a row are on one line. */
QChar separatorBehind(const QTextBlock& block)
{
    const QTextCursor here(block);
    const QTextCursor next(block.next());
    const QTextTable* const table = here.currentTable();
    if (table && table == next.currentTable()) {
        const QTextTableCell cell = table->cellAt(here);
        const QTextTableCell nextCell = table->cellAt(next);
        if (cell.row() == nextCell.row() && cell != nextCell)
            return QLatin1Char('\t');
    }
    return QChar::LineSeparator;
}

/*! The text in one piece, without empty paragraphs at its ends. Pictures cannot be shown. */
QString textOf(const QTextDocument& document)
{
    QString text;
    for (QTextBlock block = document.begin(); block.isValid() && text.size() < ORVRtfLimits::pageText;
         block = block.next()) {
        text += block.text();
        if (block.next().isValid())
            text += separatorBehind(block);
    }
    text.remove(QChar(QChar::ObjectReplacementCharacter));
    int length = int(qMin(int(text.size()), ORVRtfLimits::pageText));
    while (length > 0 && text.at(length - 1).isSpace())
        --length;
    int begin = 0;
    while (begin < length && text.at(begin) == QChar::LineSeparator)
        ++begin;
    return text.mid(begin, length - begin);
}

/*! The first paragraph that has text. */
QTextBlock firstParagraph(const QTextDocument& document)
{
    QTextBlock block = document.begin();
    while (block.next().isValid() && block.text().trimmed().isEmpty())
        block = block.next();
    return block;
}

} // namespace

void ORVRtfPageTexts::add(Side side, Pages pages, const QTextDocument& document)
{
    ORVTextPage& page = m_texts[side][pages];
    if (!page.text.isEmpty())
        return;
    page.text = textOf(document);
    const QTextBlock block = firstParagraph(document);
    if (page.text.isEmpty() || block.begin().atEnd())
        return;
    page.option.setAlignment(block.blockFormat().alignment());
    page.font = compat::font(block.begin().fragment().charFormat());
}

const ORVTextPage* ORVRtfPageTexts::find(Side side) const
{
    for (const ORVTextPage& page : m_texts[side]) {
        if (!page.text.isEmpty())
            return &page;
    }
    return nullptr;
}

void ORVRtfPageTexts::setFirstNumber(int number)
{
    m_firstNumber = number;
    m_isFirstNumberStated = true;
}

void ORVRtfPageTexts::setOn(QTextDocument* document) const
{
    bool isFirstPageEmpty = isFirstPageSpecial;
    bool hasNumbers = m_isFirstNumberStated;
    for (int side = Header; side < SideCount; ++side) {
        const ORVTextPage* const page = find(Side(side));
        document->setProperty(properties[side], page ? QVariant::fromValue(*page) : QVariant());
        isFirstPageEmpty = isFirstPageEmpty && m_texts[side][FirstPage].text.isEmpty();
        hasNumbers = hasNumbers || page;
    }
    document->setProperty("notOnFirstPage", isFirstPageEmpty ? QVariant(true) : QVariant());
    document->setProperty("countFirstPage", hasNumbers ? QVariant(m_firstNumber != 0) : QVariant());
}
