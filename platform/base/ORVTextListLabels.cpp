#include "ORVTextListLabels.h"

#include "ORVRtfProperties.h"
#include "ORVTextListCounter.h"
#include "ORVTextListFormat.h"
#include "ORVTextListProperties_p.h"
#include "ORVTextNumber.h"
#include "QtFormatCompat_p.h"

#include <QtCore/QPair>
#include <QtCore/QVector>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

namespace {

int firstNumber(const QTextListFormat& format)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    return format.start();
#else
    Q_UNUSED(format)
    return 1;
#endif
}

/*! The kind of Qt's numbers in \a format; a bullet, which has no number, for styles of others, and unknown ones. */
ORVTextListLevel::Kind kindOf(const QTextListFormat& format)
{
    // Documents can have any number here.
    switch (format.intProperty(QTextFormat::ListStyle)) {
    case QTextListFormat::ListDecimal: return ORVTextListLevel::Decimal;
    case QTextListFormat::ListLowerAlpha: return ORVTextListLevel::LowerLetter;
    case QTextListFormat::ListUpperAlpha: return ORVTextListLevel::UpperLetter;
    case QTextListFormat::ListLowerRoman: return ORVTextListLevel::LowerRoman;
    case QTextListFormat::ListUpperRoman: return ORVTextListLevel::UpperRoman;
    default: return ORVTextListLevel::Bullet;
    }
}

/*! Counts the items of a document, one after the other. */
class Numbering {
public:
    /*! The marker of \a block, which is the next item, of \a list. */
    ORVTextListLabels::Label next(QTextList* list, const QTextBlock& block);

private:
    struct List {
        QTextListFormat format;
        QList<ORVTextListLevel> levels;
        bool storesLevels = false;
        int shownLevel = -1;
        // Number of its levels among all different ones.
        int levelsNumber = 0;
        // Of a list whose items count for themselves; -1 otherwise.
        int counters = -1;
        int nextNumber = 0;
    };

    List& known(QTextList* list);
    int countersOf(const List& list, const QTextBlock& block);
    ORVTextListLabels::Label stockLabel(List& list, const QTextBlock& block);

    QHash<QTextList*, List> m_lists;
    QHash<QString, int> m_levels;
    // By the number that the items have and that of the levels.
    QHash<QPair<int, int>, int> m_joined;
    QVector<ORVTextListCounter> m_counters;
};

Numbering::List& Numbering::known(QTextList* list)
{
    const QHash<QTextList*, List>::iterator found = m_lists.find(list);
    if (found != m_lists.end())
        return *found;
    List& result = m_lists[list];
    result.format = list->format();
    result.levels = ORVTextListFormat::levels(result.format);
    result.storesLevels = ORVTextListFormat::storesLevels(result.format) && !result.levels.isEmpty();
    result.shownLevel = result.storesLevels ? ORVTextListFormat::shownLevel(result.format) : -1;
    result.nextNumber = firstNumber(result.format);
    if (result.shownLevel >= 0) {
        const QString key = result.format.stringProperty(ORVTextListProperty::Levels) + QLatin1Char(' ')
            + result.format.stringProperty(ORVTextListProperty::Markers);
        result.levelsNumber = m_levels.value(key, int(m_levels.size()));
        m_levels.insert(key, result.levelsNumber);
    } else {
        result.counters = int(m_counters.size());
        m_counters.append(ORVTextListCounter());
    }
    return result;
}

int Numbering::countersOf(const List& list, const QTextBlock& block)
{
    if (list.counters >= 0)
        return list.counters;
    const int number = block.blockFormat().intProperty(ORVRtfProperty::ListOverride);
    int& counters = *m_joined.insert(qMakePair(number, list.levelsNumber),
                                     m_joined.value(qMakePair(number, list.levelsNumber), -1));
    if (counters < 0) {
        counters = int(m_counters.size());
        m_counters.append(ORVTextListCounter());
    }
    return counters;
}

ORVTextListLabels::Label Numbering::stockLabel(List& list, const QTextBlock& block)
{
    ORVTextListLabels::Label label;
    label.list = list.counters;
    label.level = qMax(1, list.format.indent()) - 1;
    label.number = list.nextNumber++;
    if (kindOf(list.format) != ORVTextListLevel::Bullet)
        label.text =
            ORVTextListLabels::stockText(list.format, label.number, block.textDirection() == Qt::RightToLeft);
    else if (!list.levels.isEmpty())
        label.text = list.levels.first().text();
    return label;
}

ORVTextListLabels::Label Numbering::next(QTextList* textList, const QTextBlock& block)
{
    List& list = known(textList);
    if (!list.storesLevels)
        return stockLabel(list, block);
    ORVTextListLabels::Label label;
    const int level = list.shownLevel >= 0 ? list.shownLevel : ORVTextListFormat::blockLevel(textList, block);
    label.level = qMin(level, int(list.levels.size()) - 1);
    label.follow = list.levels.at(label.level).follow();
    label.justification = list.levels.at(label.level).justification();
    label.list = countersOf(list, block);
    ORVTextListCounter& counter = m_counters[label.list];
    label.number = counter.count(list.levels, label.level);
    label.text = counter.label(list.levels, label.level);
    return label;
}

} // namespace

ORVTextListLabels::ORVTextListLabels(const QTextDocument* document)
{
    if (!document)
        return;
    Numbering numbering;
    int number = 0;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next(), ++number) {
        if (QTextList* const list = block.textList())
            m_labels.insert(number, numbering.next(list, block));
    }
}

ORVTextListLabels::Label ORVTextListLabels::label(const QTextBlock& block) const
{
    // Qt searches a tree for the number.
    return m_labels.isEmpty() ? Label() : m_labels.value(block.blockNumber());
}

QString ORVTextListLabels::stockText(const QTextListFormat& format, int number, bool isRightToLeft)
{
    const QString prefix = format.numberPrefix();
    const QString suffix = compat::numberSuffix(format);
    const QString text = ORVTextNumber::text(kindOf(format), number);
    return isRightToLeft ? suffix + text + prefix : prefix + text + suffix;
}
