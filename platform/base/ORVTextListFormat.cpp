#include "ORVTextListFormat.h"

#include "ORVRtfProperties.h"
#include "ORVTextListProperties_p.h"
#include "QtFormatCompat_p.h"
#include "QtStringCompat_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QDataStream>
#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextFormat>
#include <QtGui/QTextList>

namespace {

// Qt indents a list by 40 pixels for each step of its indent, at 96 pixels to the inch.
const double pointsPerIndent = 30;

const QLatin1String numberPlaceholder("%0");

struct NumberStyle {
    ORVTextListLevel::Kind kind;
    QTextListFormat::Style style;
};

const NumberStyle numberStyles[] = {
    {ORVTextListLevel::Decimal, QTextListFormat::ListDecimal},
    {ORVTextListLevel::LowerLetter, QTextListFormat::ListLowerAlpha},
    {ORVTextListLevel::UpperLetter, QTextListFormat::ListUpperAlpha},
    {ORVTextListLevel::LowerRoman, QTextListFormat::ListLowerRoman},
    {ORVTextListLevel::UpperRoman, QTextListFormat::ListUpperRoman},
};

struct BulletStyle {
    ushort marker;
    QTextListFormat::Style style;
};

// The first marker of a style represents it. Word processors use "o" of Courier New as a circle, and code
// 0xA7 of Wingdings, in the private use area or not, as a square.
const BulletStyle bulletStyles[] = {
    {0x2022, QTextListFormat::ListDisc},   {0x25e6, QTextListFormat::ListCircle},
    {0x25cb, QTextListFormat::ListCircle}, {'o', QTextListFormat::ListCircle},
    {0x25aa, QTextListFormat::ListSquare}, {0x25ab, QTextListFormat::ListSquare},
    {0x25a0, QTextListFormat::ListSquare}, {0x25a1, QTextListFormat::ListSquare},
    {0x00a7, QTextListFormat::ListSquare}, {0xf0a7, QTextListFormat::ListSquare},
};

QDataStream& operator<<(QDataStream& stream, const ORVTextListLevel& level)
{
    return stream << level.text() << quint32(level.kind()) << level.indent() << level.firstLinePosition();
}

QDataStream& operator>>(QDataStream& stream, ORVTextListLevel& level)
{
    QString text;
    quint32 kind = 0;
    double indent = 0;
    double firstLinePosition = 0;
    stream >> text >> kind >> indent >> firstLinePosition;
    level.setText(text);
    level.setKind(kind);
    level.setIndent(indent);
    level.setFirstLinePosition(firstLinePosition);
    return stream;
}

QString encoded(const QList<ORVTextListLevel>& levels)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_4_6);
    for (const ORVTextListLevel& level : levels)
        stream << level;
    return compat::fromLatin1(bytes.toBase64());
}

bool hasDefaultMarkers(const ORVTextListLevel& level)
{
    const ORVTextListLevel defaults;
    return level.start() == defaults.start() && level.follow() == defaults.follow()
        && level.justification() == defaults.justification();
}

/*! "start:follow:justification" of each level, the last only where it is not the left one, with ";" between; empty where all are the defaults. */
QString markers(const QList<ORVTextListLevel>& levels)
{
    QStringList entries;
    bool areDefaults = true;
    for (const ORVTextListLevel& level : levels) {
        QString entry = QString::fromLatin1("%1:%2").arg(level.start()).arg(int(level.follow()));
        if (level.justification() != ORVTextListLevel::Left)
            entry += QLatin1Char(':') + QString::number(level.justification());
        entries << entry;
        areDefaults = areDefaults && hasDefaultMarkers(level);
    }
    return areDefaults ? QString() : entries.join(QLatin1String(";"));
}

void setMarkers(QList<ORVTextListLevel>& levels, const QString& text)
{
    const QStringList entries = text.split(QLatin1Char(';'));
    for (int i = 0; i < qMin(int(entries.size()), int(levels.size())); ++i) {
        const QStringList entry = entries.at(i).split(QLatin1Char(':'));
        bool isStart = false;
        const int start = entry.first().toInt(&isStart);
        const int follow = entry.value(1).toInt();
        const int justification = entry.value(2).toInt();
        if (isStart)
            levels[i].setStart(start);
        if (follow == ORVTextListLevel::Space || follow == ORVTextListLevel::Nothing)
            levels[i].setFollow(ORVTextListLevel::Follow(follow));
        if (justification == ORVTextListLevel::Center || justification == ORVTextListLevel::Right)
            levels[i].setJustification(ORVTextListLevel::Justification(justification));
    }
}

QList<ORVTextListLevel> storedLevels(const QTextListFormat& format)
{
    QList<ORVTextListLevel> levels;
    const QByteArray bytes =
        QByteArray::fromBase64(format.stringProperty(ORVTextListProperty::Levels).toLatin1());
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_4_6);
    while (!stream.atEnd()) {
        ORVTextListLevel level;
        stream >> level;
        if (stream.status() != QDataStream::Ok)
            break;
        levels.append(level);
    }
    if (format.hasProperty(ORVTextListProperty::Markers))
        setMarkers(levels, format.stringProperty(ORVTextListProperty::Markers));
    return levels;
}

QTextListFormat::Style bulletStyle(const QString& marker)
{
    const QString trimmed = marker.trimmed();
    for (const BulletStyle& bullet : bulletStyles) {
        if (trimmed == QString(QChar(bullet.marker)))
            return bullet.style;
    }
    return QTextListFormat::ListDisc;
}

QTextListFormat::Style listStyle(const ORVTextListLevel& level)
{
    if (level.kind() == ORVTextListLevel::Bullet)
        return bulletStyle(level.text());
    for (const NumberStyle& number : numberStyles) {
        if (level.kind() == unsigned(number.kind))
            return number.style;
    }
    return QTextListFormat::ListDecimal;
}

/*!
    Sets prefix and suffix of the number. A bullet has none. Neither has a template without a number: Qt would
    add its number to the text, and its own "1." is better than that.
*/
void setNumberSurroundings(QTextListFormat* format, const ORVTextListLevel& level, const QString& text)
{
    const int number = int(text.indexOf(numberPlaceholder));
    if (level.kind() == ORVTextListLevel::Bullet || number < 0) {
        format->clearProperty(QTextFormat::ListNumberPrefix);
        format->clearProperty(QTextFormat::ListNumberSuffix);
        return;
    }
    format->setNumberPrefix(text.left(number));
    format->setNumberSuffix(text.mid(number + compat::length(numberPlaceholder)));
}

QString numberTemplate(const QTextListFormat& format)
{
    return format.numberPrefix() + numberPlaceholder + compat::numberSuffix(format);
}

/*! Sets kind and template of \a level to what Qt shows for \a format; false when Qt shows nothing. */
bool setMarker(ORVTextListLevel* level, const QTextListFormat& format)
{
    for (const NumberStyle& number : numberStyles) {
        if (format.style() == number.style) {
            level->setKind(number.kind);
            level->setText(numberTemplate(format));
            return true;
        }
    }
    for (const BulletStyle& bullet : bulletStyles) {
        if (format.style() == bullet.style) {
            level->setKind(ORVTextListLevel::Bullet);
            level->setText(QString(QChar(bullet.marker)));
            return true;
        }
    }
    return false;
}

QList<ORVTextListLevel> derivedLevels(const QTextListFormat& format)
{
    QList<ORVTextListLevel> levels;
    ORVTextListLevel level;
    if (setMarker(&level, format)) {
        level.setIndent(format.indent() * pointsPerIndent);
        level.setFirstLinePosition(level.indent());
        levels.append(level);
    }
    return levels;
}

/*! Faster than QTextList::itemNumber(), which searches the whole list. */
bool isMember(QTextList* list, const QTextBlock& block)
{
    return list && block.isValid() && block.textList() == list;
}

bool statesIndents(const QTextBlockFormat& format)
{
    return format.hasProperty(ORVRtfProperty::LeftIndent) || format.hasProperty(QTextFormat::TextIndent);
}

} // namespace

QList<ORVTextListLevel> ORVTextListFormat::levels(const QTextListFormat& format)
{
    return storesLevels(format) ? storedLevels(format) : derivedLevels(format);
}

bool ORVTextListFormat::storesLevels(const QTextListFormat& format)
{
    return format.hasProperty(ORVTextListProperty::Levels);
}

void ORVTextListFormat::setLevels(QTextListFormat& format, const QList<ORVTextListLevel>& levels)
{
    format.clearProperty(ORVTextListProperty::ShownLevel);
    format.clearProperty(ORVTextListProperty::Markers);
    if (levels.isEmpty()) {
        format.clearProperty(ORVTextListProperty::Levels);
        return;
    }
    format.setProperty(ORVTextListProperty::Levels, encoded(levels));
    const QString starts = markers(levels);
    if (!starts.isEmpty())
        format.setProperty(ORVTextListProperty::Markers, starts);
    format.setStyle(listStyle(levels.first()));
    setNumberSurroundings(&format, levels.first(), levels.first().text());
}

int ORVTextListFormat::shownLevel(const QTextListFormat& format)
{
    return format.hasProperty(ORVTextListProperty::ShownLevel)
        ? format.intProperty(ORVTextListProperty::ShownLevel)
        : -1;
}

void ORVTextListFormat::setShownLevel(QTextListFormat& format, int level, const QString& text, int number)
{
    const QList<ORVTextListLevel> levels = storedLevels(format);
    if (level < 0 || level >= levels.size())
        return;
    const ORVTextListLevel& shown = levels.at(level);
    format.setProperty(ORVTextListProperty::ShownLevel, level);
    format.setIndent(level + 1);
    format.setStyle(shown.text().isEmpty() ? QTextListFormat::ListStyleUndefined : listStyle(shown));
    setNumberSurroundings(&format, shown, text);
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
    format.setStart(number);
#else
    Q_UNUSED(number)
#endif
}

int ORVTextListFormat::blockLevel(QTextList* list, const QTextBlock& block)
{
    if (!isMember(list, block))
        return 0;
    return qMax(0, block.blockFormat().property(ORVRtfProperty::ListLevel).toInt());
}

void ORVTextListFormat::setBlockLevel(QTextList* list, const QTextBlock& block, int level)
{
    if (!isMember(list, block))
        return;
    const int validLevel = qMax(0, level);
    // A changed copy keeps the reference to the list that the block's own format holds.
    QTextBlockFormat format = block.blockFormat();
    format.setProperty(ORVRtfProperty::ListLevel, validLevel);
    if (!statesIndents(format)) {
        const QList<ORVTextListLevel> levels = storedLevels(list->format());
        if (validLevel < levels.size()) {
            format.setProperty(ORVRtfProperty::LeftIndent, levels.at(validLevel).indent());
            format.setProperty(QTextFormat::TextIndent, levels.at(validLevel).firstLinePosition());
        }
    }
    if (format != block.blockFormat())
        QTextCursor(block).setBlockFormat(format);
}
