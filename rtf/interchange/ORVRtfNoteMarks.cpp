#include "ORVRtfNoteMarks_p.h"

#include "ORVRtfLimits_p.h"
#include "ORVRtfProperties.h"
#include "ORVTextListLevel.h"
#include "ORVTextNumber.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QBuffer>
#include <QtGui/QTextCharFormat>
#include <QtGui/QTextDocument>

namespace {

/*! Asterisk, dagger, double dagger, section sign; then each twice, and so on. */
QString symbolMark(int number)
{
    const ushort symbols[] = {'*', 0x2020, 0x2021, 0x00A7};
    const int count = int(sizeof(symbols) / sizeof(symbols[0]));
    const int repeated = qMin((number - 1) / count + 1, ORVRtfLimits::noteMark);
    return QString(repeated, QChar(symbols[(number - 1) % count]));
}

/*! The text of a note in the form in which notes are stored in formats. */
QByteArray toRtf(const QTextDocument& document)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    ORVTextRtfWriter(&buffer).write(&document, true);
    return bytes;
}

} // namespace

void ORVRtfNote::attach(QTextCharFormat& format, const QTextDocument& document) const
{
    format.clearProperty(QTextFormat::IsAnchor);
    format.clearProperty(QTextFormat::AnchorHref);
    format.clearProperty(ORVRtfProperty::BaselineShift);
    format.setVerticalAlignment(QTextCharFormat::AlignSuperScript);
    format.setProperty(kind == Comment ? ORVRtfProperty::AnnotationAnchor : ORVRtfProperty::FootnoteAnchor,
                       true);
    if (kind == Endnote)
        format.setProperty(ORVRtfProperty::EndnoteAnchor, true);
    format.setProperty(ORVRtfProperty::NoteNumber, number);
    if (!author.isEmpty())
        format.setProperty(ORVRtfProperty::NoteAuthor, author);
    if (!initials.isEmpty())
        format.setProperty(ORVRtfProperty::NoteInitials, initials);
    if (date.isValid())
        format.setProperty(ORVRtfProperty::NoteDate, date);
    format.setProperty(ORVRtfProperty::HasNoteContent, true);
    format.setProperty(ORVRtfProperty::NoteContent, toRtf(document));
}

ORVRtfNoteMarks::ORVRtfNoteMarks()
{
    for (int kind = 0; kind < ORVRtfNote::KindCount; ++kind) {
        m_styles[kind] = Decimal;
        m_next[kind] = 1;
    }
    // As word processors have it, so that the two kinds are told apart.
    m_styles[ORVRtfNote::Endnote] = LowerRoman;
}

void ORVRtfNoteMarks::setStart(ORVRtfNote::Kind kind, int number)
{
    m_next[kind] = qBound(1, number, ORVRtfLimits::noteStart);
}

void ORVRtfNoteMarks::giveBack(ORVRtfNote::Kind kind, int number)
{
    if (m_next[kind] == number + 1)
        m_next[kind] = number;
}

QString ORVRtfNoteMarks::mark(ORVRtfNote::Kind kind, int number) const
{
    switch (m_styles[kind]) {
    case LowerLetter: return ORVTextNumber::wordProcessorText(ORVTextListLevel::LowerLetter, number);
    case UpperLetter: return ORVTextNumber::wordProcessorText(ORVTextListLevel::UpperLetter, number);
    case LowerRoman: return ORVTextNumber::wordProcessorText(ORVTextListLevel::LowerRoman, number);
    case UpperRoman: return ORVTextNumber::wordProcessorText(ORVTextListLevel::UpperRoman, number);
    case Symbol: return symbolMark(number);
    default: return QString::number(number);
    }
}
