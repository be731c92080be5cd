#include "ORVMarkdownText_p.h"

#include "ORVFontFamilies_p.h"
#include "ORVLinkTargets_p.h"
#include "ORVMarkdownEscape_p.h"
#include "ORVNoteFinder_p.h"
#include "ORVRtfProperties.h"
#include "QtFontCompat_p.h"
#include "html/ORVHtmlLinks_p.h"

#include <QtGui/QFont>
#include <QtGui/QTextDocument>

namespace {

using Piece = ORVMarkdownPiece;

const QChar pictureCharacter = QChar::ObjectReplacementCharacter;

int inlineStyle(const QTextCharFormat& format)
{
    int style = 0;
    if (compat::font(format).weight() > QFont::Medium)
        style |= Piece::Bold;
    if (format.fontItalic())
        style |= Piece::Italic;
    if (format.fontStrikeOut())
        style |= Piece::StrikeOut;
    const int shift = format.intProperty(ORVRtfProperty::BaselineShift);
    switch (format.intProperty(QTextFormat::TextVerticalAlignment)) {
    case QTextCharFormat::AlignSuperScript: style |= Piece::Superscript; break;
    case QTextCharFormat::AlignSubScript: style |= Piece::Subscript; break;
    case QTextCharFormat::AlignMiddle:
        if (shift != 0)
            style |= shift > 0 ? Piece::Superscript : Piece::Subscript;
        break;
    default: break;
    }
    return style;
}

bool isUnderlined(const QTextCharFormat& format)
{
    const int style = format.intProperty(QTextFormat::TextUnderlineStyle);
    return style != QTextCharFormat::NoUnderline && style != QTextCharFormat::SpellCheckUnderline;
}

/*! Whether most of the text would be code by its font: a typewriter's. */
bool isMostlyOfFixedPitch(const ORVHtmlRuns& runs)
{
    qint64 fixed = 0;
    qint64 all = 0;
    const QMap<int, int> lengths = runs.lengthsOfFormats();
    for (QMap<int, int>::const_iterator it = lengths.constBegin(); it != lengths.constEnd(); ++it) {
        all += *it;
        if (ORVMarkdownText::hasFixedPitch(runs.format(it.key())))
            fixed += *it;
    }
    return 2 * fixed > all;
}

} // namespace

ORVMarkdownText::ORVMarkdownText(ORVMarkdownContext* context, const QTextDocument* document, bool isNote)
    : m_context(context), m_document(document), m_runs(document),
      m_notes(context->notes->take(document, isNote))
{
    if (!isNote)
        context->hasCode = !isMostlyOfFixedPitch(m_runs);
    const QVector<QTextFormat> formats = document->allFormats();
    for (const QTextFormat& format : formats) {
        const QString target = ORVHtmlLinks::target(format.toCharFormat());
        if (target.startsWith(QLatin1Char('#')))
            context->targets.insert(target.mid(1));
    }
}

QString ORVMarkdownText::cleaned(const QString& text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : text) {
        if (character == QLatin1Char('\n') || character == QLatin1Char('\r'))
            result += QLatin1Char(' ');
        else if (character != pictureCharacter && ORVHtmlOutput::isAllowed(character))
            result += character;
    }
    return result;
}

bool ORVMarkdownText::hasFixedPitch(const QTextCharFormat& format)
{
    return format.boolProperty(QTextFormat::FontFixedPitch)
        || ORVFontFamilies::generic(compat::fontFamily(format)) == "monospace";
}

ORVMarkdownText::Format ORVMarkdownText::newFormat(const QTextCharFormat& format) const
{
    Format result;
    result.link = ORVHtmlLinks::target(format);
    result.anchors = format.anchorNames();
    result.isPicture = format.isImageFormat();
    result.style = inlineStyle(format);
    if (isUnderlined(format) && result.link.isEmpty())
        result.style |= Piece::Underline;
    if (m_context->hasCode && hasFixedPitch(format))
        result.style |= Piece::Code;
    return result;
}

const ORVMarkdownText::Format& ORVMarkdownText::format(int index)
{
    QHash<int, Format>::const_iterator known = m_formats.constFind(index);
    if (known == m_formats.constEnd())
        known = m_formats.insert(index, newFormat(m_runs.format(index)));
    return *known;
}

void ORVMarkdownText::append(const QTextBlock& block)
{
    const ORVHtmlRuns::Paragraph& paragraph = m_runs.paragraph(block);
    int position = paragraph.position;
    for (int i = 0; i < paragraph.runCount; ++i) {
        const ORVHtmlRuns::Run& run = m_runs.run(paragraph.firstRun + i);
        appendRun(run.format, position, position + run.length);
        position += run.length;
    }
    m_goesOn = m_nextNote < m_notes.size() && m_notes.at(m_nextNote).note.position <= position
        && m_notes.at(m_nextNote).note.position + m_notes.at(m_nextNote).note.length > position;
}

/*! Appends the text from \a position up to \a end, which is of one format, and the marks of its notes. */
void ORVMarkdownText::appendRun(int index, int position, int end)
{
    int from = position;
    while (from < end) {
        if (m_nextNote == m_notes.size() || m_notes.at(m_nextNote).note.position >= end) {
            appendPart(index, from, end);
            return;
        }
        const ORVNoteQueue::Entry& entry = m_notes.at(m_nextNote);
        const int noteEnd = entry.note.position + entry.note.length;
        const int textEnd =
            entry.note.holding == ORVNote::Attached ? qMin(end, noteEnd) : qMax(from, entry.note.position);
        if (from < textEnd)
            appendPart(index, from, textEnd);
        from = qMin(end, noteEnd);
        if (from < noteEnd)
            return;
        m_pieces.append(Piece(Piece::Markup, QLatin1String("[^") + label(entry) + QLatin1Char(']')));
        ++m_nextNote;
    }
}

void ORVMarkdownText::appendPart(int index, int from, int end)
{
    const Format& format = this->format(index);
    appendAnchors(format.anchors, format.link);
    if (format.isPicture) {
        appendPictures(m_runs.format(index), format.link, end - from);
        return;
    }
    const QString text(m_runs.text(from), end - from);
    int lineStart = 0;
    while (lineStart <= text.size()) {
        int lineEnd = int(text.indexOf(QChar(QChar::LineSeparator), lineStart));
        if (lineEnd < 0)
            lineEnd = int(text.size());
        if (lineStart > 0)
            m_pieces.append(Piece(Piece::LineBreak, QString(), format.style, format.link));
        const QString line = cleaned(text.mid(lineStart, lineEnd - lineStart));
        if (!line.isEmpty())
            m_pieces.append(Piece(Piece::Text, line, format.style, format.link));
        lineStart = lineEnd + 1;
    }
}

void ORVMarkdownText::appendPictures(const QTextCharFormat& format, const QString& link, int count)
{
    const QTextImageFormat image = format.toImageFormat();
    QString address = m_context->pictures->address(*m_document, image);
    if (address.isEmpty())
        address = ORVLinkTargets::address(image.name());
    if (address.isEmpty())
        return;
    const QString markup = QLatin1String("![](") + ORVMarkdownEscape::destination(address) + QLatin1Char(')');
    for (int i = 0; i < count; ++i)
        m_pieces.append(Piece(Piece::Markup, markup, 0, link));
}

/*! Only those that a link leads to, since anchors are hard to read. */
void ORVMarkdownText::appendAnchors(const QStringList& names, const QString& link)
{
    for (const QString& name : names) {
        const QString id = ORVHtmlLinks::id(name);
        if (!m_context->targets.contains(id) || m_context->ids.contains(id))
            continue;
        m_context->ids.insert(id);
        const QString value = QString::fromUtf8(ORVHtmlOutput::attributeValue(id));
        m_pieces.append(
            Piece(Piece::Markup, QLatin1String("<a id=") + value + QLatin1String("></a>"), 0, link));
    }
}

ORVMarkdownPieces ORVMarkdownText::take()
{
    ORVMarkdownPieces result;
    result.swap(m_pieces);
    return result;
}

bool ORVMarkdownText::isCode(const QTextBlock& block)
{
    const ORVHtmlRuns::Paragraph& paragraph = m_runs.paragraph(block);
    const int end = paragraph.position + paragraph.length;
    if (m_nextNote < m_notes.size() && m_notes.at(m_nextNote).note.position <= end)
        return false;
    bool hasText = false;
    int position = paragraph.position;
    for (int i = 0; i < paragraph.runCount; ++i) {
        const ORVHtmlRuns::Run& run = m_runs.run(paragraph.firstRun + i);
        const QString text = QString(m_runs.text(position), run.length).trimmed();
        position += run.length;
        const Format& format = this->format(run.format);
        if (format.isPicture || !format.link.isEmpty() || (!text.isEmpty() && !(format.style & Piece::Code)))
            return false;
        hasText = hasText || !text.isEmpty();
    }
    return hasText;
}

QString ORVMarkdownText::plainText(const QTextBlock& block) const
{
    const ORVHtmlRuns::Paragraph& paragraph = m_runs.paragraph(block);
    QString text(m_runs.text(paragraph.position), paragraph.length);
    return cleaned(text).replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
}

QString ORVMarkdownText::label(const ORVNoteQueue::Entry& note)
{
    // The marks of the document can be any text, and several notes can have the same.
    return ORVNoteFinder::mark(note.note.kind, note.count);
}
