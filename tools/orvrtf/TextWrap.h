#ifndef ORVRTF_TEXTWRAP_H
#define ORVRTF_TEXTWRAP_H

#include <QString>
#include <QStringList>

/*! Lines of text of limited width, in columns of a terminal. */
namespace TextWrap {

enum LongWords { Whole, Broken };

/*!
    \a text, which can have line feeds, behind \a label as lines of at most \a width columns; 0 for any number. Lines
    behind the first one begin where the text behind the label does. They are broken at blanks, and between Chinese and
    Japanese characters. A word that is too long stays whole or is broken, as \a longWords says.
*/
QStringList lines(const QString& label, const QString& text, int width, LongWords longWords = Whole);

/*! \a text, which can have line feeds, with blanks in place of its tabs. */
QString withoutTabs(const QString& text);

/*! The columns of the longest line of \a text, which has no tabs. */
int longestLine(const QString& text);

/*! The columns of the longest part of \a text that lines() does not break. */
int longestWord(const QString& text);

} // namespace TextWrap

#endif
