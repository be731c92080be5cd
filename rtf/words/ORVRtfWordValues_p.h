#ifndef ORVRTFWORDVALUES_P_H
#define ORVRTFWORDVALUES_P_H

#include "ORVTextListLevel.h"
#include "ORVTextRtfCommon.h"

#include <QtGui/QTextCharFormat>

/*!
    Control words and numbers that correspond one to one to values of Qt or of the application. The reader
    maps in one direction, the writer in the other.
*/
namespace ORVRtfWordValues {

/*! A control word and the corresponding value of a format property. */
struct WordValue {
    ORVTextRtfCommon::KeyWord word;
    int value;
};

constexpr WordValue underlineStyles[] = {
    {ORVTextRtfCommon::UnderlineSolid, QTextCharFormat::SingleUnderline},
    {ORVTextRtfCommon::UnderlineDash, QTextCharFormat::DashUnderline},
    {ORVTextRtfCommon::UnderlineDot, QTextCharFormat::DotLine},
    {ORVTextRtfCommon::UnderlineDashDot, QTextCharFormat::DashDotLine},
    {ORVTextRtfCommon::UnderlineDashDotDot, QTextCharFormat::DashDotDotLine},
    {ORVTextRtfCommon::UnderlineWave, QTextCharFormat::WaveUnderline}};

constexpr WordValue paragraphAlignments[] = {{ORVTextRtfCommon::LeftAlignParagraph, Qt::AlignLeft},
                                             {ORVTextRtfCommon::RightAlignParagraph, Qt::AlignRight},
                                             {ORVTextRtfCommon::CenterParagraph, Qt::AlignHCenter},
                                             {ORVTextRtfCommon::JustifyParagraph, Qt::AlignJustify}};

/*! Vertical alignments of text. Qt's middle alignment is the word for centred text, as of cells. */
constexpr WordValue verticalAlignments[] = {
    {ORVTextRtfCommon::SuperScript, QTextCharFormat::AlignSuperScript},
    {ORVTextRtfCommon::SubScript, QTextCharFormat::AlignSubScript},
    {ORVTextRtfCommon::TextVerticalAlignCenter, QTextCharFormat::AlignMiddle},
    {ORVTextRtfCommon::TextVerticalAlignTop, QTextCharFormat::AlignTop},
    {ORVTextRtfCommon::TextVerticalAlignBottom, QTextCharFormat::AlignBottom},
    {ORVTextRtfCommon::TextVerticalAlignJustified, QTextCharFormat::AlignBaseline}};

/*! The value for \a word in \a table, 0 when it is not there. */
template <int size>
constexpr int valueOf(const WordValue (&table)[size], ORVTextRtfCommon::KeyWord word)
{
    for (int i = 0; i < size; ++i) {
        if (table[i].word == word)
            return table[i].value;
    }
    return 0;
}

/*! The control word for \a value in \a table, NoKeyWord when it is not there. */
template <int size>
constexpr ORVTextRtfCommon::KeyWord wordOf(const WordValue (&table)[size], int value)
{
    for (int i = 0; i < size; ++i) {
        if (table[i].value == value)
            return table[i].word;
    }
    return ORVTextRtfCommon::NoKeyWord;
}

/*! A kind of list numbering and its number in RTF. */
struct NumberFormat {
    int levelNfc;
    ORVTextListLevel::Kind kind;
};

constexpr NumberFormat numberFormats[] = {
    {0, ORVTextListLevel::Decimal},     {1, ORVTextListLevel::UpperRoman},  {2, ORVTextListLevel::LowerRoman},
    {3, ORVTextListLevel::UpperLetter}, {4, ORVTextListLevel::LowerLetter}, {23, ORVTextListLevel::Bullet}};

/*! Kinds that the storage form does not know; it takes them for decimal. */
constexpr NumberFormat eastAsianNumberFormats[] = {
    {10, ORVTextListLevel::IdeographDigit},    {11, ORVTextListLevel::IdeographCounting},
    {12, ORVTextListLevel::KatakanaAiueo},     {13, ORVTextListLevel::KatakanaIroha},
    {18, ORVTextListLevel::Circled},           {20, ORVTextListLevel::KatakanaAiueo},
    {21, ORVTextListLevel::KatakanaIroha},     {24, ORVTextListLevel::HangulSyllable},
    {25, ORVTextListLevel::HangulConsonant},   {28, ORVTextListLevel::Circled},
    {30, ORVTextListLevel::HeavenlyStem},      {31, ORVTextListLevel::EarthlyBranch},
    {33, ORVTextListLevel::IdeographCounting}, {37, ORVTextListLevel::IdeographCounting}};

} // namespace ORVRtfWordValues

#endif
