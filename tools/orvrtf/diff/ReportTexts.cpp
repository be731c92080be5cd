#include "ReportTexts.h"

#include "Messages.h"

#include <QStringList>

#include <algorithm>

namespace {

// In characters.
const int contextLength = 40;
const int quotedLength = 70;
const QChar ellipsis(0x2026);
const QChar lineBreakSign(0x21b5);
const QChar blankSign(0x2423);
const QChar paragraphSign(0xb6);

bool isControl(QChar character)
{
    const ushort unicode = character.unicode();
    return (unicode < 0x20 && unicode != '\t') || (unicode >= 0x7f && unicode < 0xa0) || unicode >= 0xfffe;
}

bool isLineBreak(QChar character)
{
    return character == QChar::LineSeparator || character == QChar::ParagraphSeparator
        || character == QLatin1Char('\n');
}

bool hasOnlyBlanks(const QString& text)
{
    return std::all_of(text.constBegin(), text.constEnd(),
                       [](QChar character) { return character == QLatin1Char(' '); });
}

/*! Whether a change of \a character could not be seen. */
bool isInvisible(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Format:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned: return true;
    default: return character.isSpace() && character != QLatin1Char(' ') && !isLineBreak(character);
    }
}

QString codePoint(QChar character)
{
    return QStringLiteral("<U+%1>").arg(int(character.unicode()), 4, 16, QLatin1Char('0')).toUpper();
}

/*! A position in \a text near \a position that is in front of a word or, of \a direction -1, behind one. */
int wordBoundary(const QString& text, int position, int direction)
{
    int boundary = position;
    while (boundary > 0 && boundary < text.size() && !text.at(boundary).isSpace()
           && qAbs(boundary - position) < contextLength / 2)
        boundary += direction;
    // Not between the halves of a character.
    if (boundary < text.size() && text.at(boundary).isLowSurrogate())
        boundary += direction;
    return qBound(0, boundary, int(text.size()));
}

QString beginning(const QString& text, int length)
{
    return text.left(wordBoundary(text, length, 1));
}

QString ending(const QString& text, int length)
{
    return text.mid(wordBoundary(text, int(text.size()) - length, -1));
}

/*! A place with the words there, if it is about some. */
QString shownPlace(const Difference& difference)
{
    const QString place = difference.place.shownTo(difference.last);
    return difference.words.isEmpty() ? place
                                      : place + QLatin1Char(' ') + ReportTexts::quoted(difference.words);
}

} // namespace

QString ReportTexts::visible(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (isLineBreak(character))
            result += lineBreakSign;
        else
            result += isControl(character) ? QChar(QChar::ReplacementCharacter) : character;
    }
    return result;
}

QString ReportTexts::visibleParagraph(const QString& text)
{
    if (text.isEmpty())
        return paragraphSign;
    return text.trimmed().isEmpty() ? visibleChange(text) : visible(text);
}

QString ReportTexts::visibleChange(const QString& text)
{
    if (hasOnlyBlanks(text))
        return QString(text.size(), blankSign);
    QString result;
    for (const QChar character : text)
        result += isInvisible(character) ? codePoint(character) : visible(character);
    return result;
}

QString ReportTexts::context(const QString& text, bool isFirst, bool isLast)
{
    const int kept = (isFirst ? 0 : contextLength) + (isLast ? 0 : contextLength);
    // As long as this there is nothing to gain.
    if (text.size() <= kept + contextLength)
        return visible(text);
    const QString begin = isFirst ? QString() : beginning(text, contextLength) + QLatin1Char(' ');
    const QString end = isLast ? QString() : ending(text, contextLength);
    return visible(begin) + ellipsis + visible(end);
}

QString ReportTexts::quoted(const QString& words)
{
    QString text = words;
    if (words.size() > quotedLength)
        text = beginning(words, quotedLength / 3) + QLatin1Char(' ') + ellipsis
            + ending(words, quotedLength / 3);
    return Messages::tr("\"%1\"").arg(visible(text));
}

QString ReportTexts::heading(const Difference& difference)
{
    QString place = difference.place.shownTo(difference.last);
    switch (difference.kind) {
    case Difference::Removed: return Messages::tr("%1, removed").arg(place);
    case Difference::Added: return Messages::tr("%1, added").arg(place);
    default: return place;
    }
}

QString ReportTexts::places(const FrequentChange& change)
{
    QStringList examples;
    for (const Difference& example : change.examples)
        examples << shownPlace(example);
    return Messages::tr("%1 places, the first ones are: %2")
        .arg(change.count)
        .arg(examples.join(QLatin1String("; ")));
}

QString ReportTexts::frequentHeading()
{
    return Messages::tr("in many places");
}

QString ReportTexts::summary(const Differences& differences)
{
    return Messages::tr("words removed: %1, words added: %2, other changes: %3")
        .arg(differences.wordsRemoved)
        .arg(differences.wordsAdded)
        .arg(differences.others);
}
