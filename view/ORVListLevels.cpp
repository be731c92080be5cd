#include "ORVListLevels.h"

#include "ORVTextListFormat.h"
#include "QtFormatCompat_p.h"

#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QVector>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

namespace {

/*! A list while its levels are being separated. */
struct Separation {
    QList<ORVTextListLevel> levels;
    /*! The current item of each level; invalid where there is none. */
    QVector<QTextBlock> items;
};

/*! The number of \a item without prefix and suffix; "1" when there is no item. */
QString numberOf(const QTextBlock& item)
{
    if (!item.isValid())
        return QString::number(1);
    const QTextListFormat format = item.textList()->format();
    const QString text = item.textList()->itemText(item);
    const QString suffix = compat::numberSuffix(format);
    const QString prefix = format.numberPrefix();
    // From right to left the suffix comes first.
    const QString& before = item.textDirection() == Qt::RightToLeft ? suffix : prefix;
    return text.mid(before.size(), text.size() - prefix.size() - suffix.size());
}

/*! The template of \a level with the numbers of higher levels filled in, since they no longer change. */
QString templateOf(const Separation& separation, int level)
{
    QString text = separation.levels.at(level).text();
    for (int above = 1; above <= level; ++above)
        text.replace(QString::fromLatin1("%%1").arg(above), numberOf(separation.items.at(level - above)));
    return text;
}

QTextListFormat formatOf(const QTextListFormat& original, const Separation& separation, int level)
{
    ORVTextListLevel shown = separation.levels.at(level);
    shown.setText(templateOf(separation, level));
    QTextListFormat format(original);
    ORVTextListFormat::setLevels(format, QList<ORVTextListLevel>() << shown);
    if (shown.text().isEmpty())
        format.setStyle(QTextListFormat::ListStyleUndefined);
    format.setIndent(original.indent() + level);
    return format;
}

/*! Reduces the paragraph's margin by what the new list adds to its indent. */
void keepPosition(const QTextBlock& block, int steps)
{
    const double indent = steps * block.document()->indentWidth();
    QTextBlockFormat change;
    if (block.textDirection() == Qt::RightToLeft)
        change.setRightMargin(block.blockFormat().rightMargin() - indent);
    else
        change.setLeftMargin(block.blockFormat().leftMargin() - indent);
    QTextCursor(block).mergeBlockFormat(change);
}

void separateItem(const QTextBlock& block, Separation* separation)
{
    QTextList* const original = block.textList();
    const int level =
        qMin(ORVTextListFormat::blockLevel(original, block), int(separation->levels.size()) - 1);
    separation->items.resize(level + 1);
    QTextBlock& current = separation->items[level];
    if (level > 0) {
        if (current.isValid())
            current.textList()->add(block);
        else
            QTextCursor(block).createList(formatOf(original->format(), *separation, level));
        keepPosition(block, level);
    }
    current = block;
}

/*! The lists that have items on other levels than the first, where one QTextList holds them all. */
QSet<QTextList*> listsOfSeveralLevels(const QTextDocument* document)
{
    QSet<QTextList*> lists;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        QTextList* const list = block.textList();
        if (list && ORVTextListFormat::blockLevel(list, block) > 0
            && ORVTextListFormat::shownLevel(list->format()) < 0
            && ORVTextListFormat::levels(list->format()).size() > 1)
            lists.insert(list);
    }
    return lists;
}

} // namespace

void ORVListLevels::separate(QTextDocument* document)
{
    if (!document)
        return;
    const QSet<QTextList*> lists = listsOfSeveralLevels(document);
    if (lists.isEmpty())
        return;
    QHash<QTextList*, Separation> separations;
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        QTextList* const list = block.textList();
        if (!list || !lists.contains(list))
            continue;
        Separation& separation = separations[list];
        if (separation.levels.isEmpty())
            separation.levels = ORVTextListFormat::levels(list->format());
        separateItem(block, &separation);
    }
    cursor.endEditBlock();
}
