#include "ORVRtfFieldTarget_p.h"

#include <QtCore/QVector>

namespace {

struct Argument {
    QString text;
    bool isQuoted;

    bool isSwitch() const { return !isQuoted && text.startsWith(QLatin1Char('\\')); }
    bool isSwitch(char letter) const
    {
        return isSwitch() && text.mid(1).toLower() == QString(QLatin1Char(letter));
    }
    /*! Switches whose argument is the next word: a place, a tip, a window, a format. */
    bool takesArgument() const
    {
        return isSwitch() && text.size() == 2
            && QString::fromLatin1("lotsdf*#@").contains(text.at(1).toLower());
    }
};

bool isQuote(QChar c)
{
    return c == QLatin1Char('"') || c.unicode() == 0x201C || c.unicode() == 0x201D;
}

/*! Whether a backslash escapes \a c. Paths that are written with single backslashes keep these. */
bool isEscapable(QChar c)
{
    return c == QLatin1Char('\\') || isQuote(c);
}

/*! Takes what stands in quotation marks at \a i, with an escaped character being itself. */
QString takeQuoted(const QString& instruction, int* i)
{
    QString text;
    for (++*i; *i < instruction.size() && !isQuote(instruction.at(*i)); ++*i) {
        if (instruction.at(*i) == QLatin1Char('\\') && *i + 1 < instruction.size()
            && isEscapable(instruction.at(*i + 1)))
            ++*i;
        text += instruction.at(*i);
    }
    ++*i;
    return text;
}

QString takeWord(const QString& instruction, int* i)
{
    const int begin = *i;
    while (*i < instruction.size() && !instruction.at(*i).isSpace() && !isQuote(instruction.at(*i)))
        ++*i;
    return instruction.mid(begin, *i - begin);
}

QVector<Argument> argumentsOf(const QString& instruction)
{
    QVector<Argument> arguments;
    for (int i = 0; i < instruction.size();) {
        if (instruction.at(i).isSpace())
            ++i;
        else if (isQuote(instruction.at(i)))
            arguments.append({takeQuoted(instruction, &i), true});
        else
            arguments.append({takeWord(instruction, &i), false});
    }
    return arguments;
}

/*! The first argument that is neither a switch nor belongs to one; null if there is none. */
QString plainArgument(const QVector<Argument>& arguments)
{
    for (int i = 1; i < arguments.size(); ++i) {
        if (!arguments.at(i).isSwitch())
            return QLatin1String("") + arguments.at(i).text;
        if (arguments.at(i).takesArgument())
            ++i;
    }
    return QString();
}

int indexOfSwitch(const QVector<Argument>& arguments, char letter)
{
    for (int i = 1; i < arguments.size(); ++i) {
        if (arguments.at(i).isSwitch(letter))
            return i;
    }
    return -1;
}

QString placeNamed(const QString& name)
{
    return name.isEmpty() ? QString() : QLatin1Char('#') + name;
}

QString hyperlinkTarget(const QVector<Argument>& arguments)
{
    const int place = indexOfSwitch(arguments, 'l') + 1;
    const bool hasPlace = place > 0 && place < arguments.size();
    const QString target =
        plainArgument(arguments) + (hasPlace ? placeNamed(arguments.at(place).text) : QString());
    return target.isEmpty() ? QString() : target;
}

} // namespace

QString ORVRtfFieldTarget::of(const QString& instruction)
{
    const QVector<Argument> arguments = argumentsOf(instruction);
    if (arguments.isEmpty())
        return QString();
    const QString name = arguments.first().text.toUpper();
    if (name == QLatin1String("HYPERLINK"))
        return hyperlinkTarget(arguments);
    if (name == QLatin1String("PAGEREF"))
        return placeNamed(plainArgument(arguments));
    // Other references are links only with a switch.
    if ((name == QLatin1String("REF") || name == QLatin1String("NOTEREF"))
        && indexOfSwitch(arguments, 'h') > 0)
        return placeNamed(plainArgument(arguments));
    return QString();
}

bool ORVRtfFieldTarget::isField(const QString& instruction, const char* name)
{
    int i = 0;
    const QString text = instruction.trimmed();
    // A switch can follow without a blank.
    const QString word = takeWord(text, &i).section(QLatin1Char('\\'), 0, 0);
    return word.toUpper() == QLatin1String(name);
}
