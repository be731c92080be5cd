#include "ORVHtmlText_p.h"

#include "ORVHtmlContext_p.h"
#include "ORVHtmlLinks_p.h"
#include "ORVHtmlNotes_p.h"
#include "ORVLinkTargets_p.h"
#include "ORVTextFormat.h"

#include <QtGui/QTextDocument>

namespace {

void closeElement(ORVHtmlOutput* output, const ORVHtmlInlineElement& element)
{
    output->markup("</");
    output->markup(element.tag);
    output->markup(">");
}

bool isBlank(const QChar* text, int length)
{
    int i = 0;
    while (i < length && text[i] == QLatin1Char(' '))
        ++i;
    return i == length;
}

/*! One of \a pixels with a blank in front; empty for sizes that are not stated. */
QByteArray sizeAttribute(const char* name, double pixels)
{
    // Documents can have any number.
    const double largest = 1e6;
    if (!(pixels > 0))
        return QByteArray();
    return QByteArray(" ") + name + "=\"" + QByteArray::number(qMax(1, qRound(qMin(pixels, largest)))) + '"';
}

} // namespace

ORVHtmlText::ORVHtmlText(ORVHtmlContext* context, const QTextDocument* document, const ORVHtmlRuns& runs,
                         const QVector<ORVHtmlNote>& notes)
    : m_context(context), m_document(document), m_runs(runs),
      m_styles(context->sheet, ORVTextFormat::defaultCharFormat(document), context->language), m_notes(notes)
{
}

/*! The index of the format of most of the text of \a paragraph, which is not empty. */
int ORVHtmlText::mostFrequentFormat(const ORVHtmlRuns::Paragraph& paragraph) const
{
    const ORVHtmlRuns::Run& first = m_runs.run(paragraph.firstRun);
    int best = first.format;
    if (2 * first.length >= paragraph.length)
        return best;
    QHash<int, int> lengths;
    for (int i = 0; i < paragraph.runCount; ++i) {
        const ORVHtmlRuns::Run& run = m_runs.run(paragraph.firstRun + i);
        if ((lengths[run.format] += run.length) > lengths.value(best))
            best = run.format;
    }
    return best;
}

int ORVHtmlText::base(const QTextBlock& block, bool isHeading)
{
    const ORVHtmlRuns::Paragraph& paragraph = m_runs.paragraph(block);
    const int index = paragraph.runCount == 0 ? block.charFormatIndex() : mostFrequentFormat(paragraph);
    const int key = 2 * index + (isHeading ? 1 : 0);
    const QHash<int, int>::const_iterator known = m_formatBases.constFind(key);
    if (known != m_formatBases.constEnd())
        return *known;
    const ORVHtmlDeclarations declarations = m_styles.base(m_runs.format(index), isHeading);
    const QByteArray css = declarations.css();
    const int number = m_baseNumbers.value(css, int(m_bases.size()));
    if (number == m_bases.size()) {
        m_bases.append(declarations);
        m_baseNumbers.insert(css, number);
    }
    m_formatBases.insert(key, number);
    return number;
}

ORVHtmlText::Run ORVHtmlText::newRun(const QTextCharFormat& format, int base) const
{
    Run run;
    run.elements = m_styles.elements(format, m_bases.at(base));
    run.anchors = format.anchorNames();
    run.isPicture = format.isImageFormat();
    run.hasPlainBlanks = ORVHtmlTextStyles::hasPlainBlanks(format);
    return run;
}

const ORVHtmlText::Run& ORVHtmlText::run(int format, int base)
{
    const QPair<int, int> key(base, format);
    QHash<QPair<int, int>, Run>::const_iterator known = m_knownRuns.constFind(key);
    if (known == m_knownRuns.constEnd())
        known = m_knownRuns.insert(key, newRun(m_runs.format(format), base));
    return *known;
}

void ORVHtmlText::write(const QTextBlock& block, int base)
{
    const ORVHtmlRuns::Paragraph& paragraph = m_runs.paragraph(block);
    int position = paragraph.position;
    for (int i = 0; i < paragraph.runCount; ++i) {
        const ORVHtmlRuns::Run& run = m_runs.run(paragraph.firstRun + i);
        writeRun(run.format, position, position + run.length, base);
        position += run.length;
    }
    closeElements(0);
    m_goesOn = m_nextNote < m_notes.size() && m_notes.at(m_nextNote).note.position <= position
        && m_notes.at(m_nextNote).note.position + m_notes.at(m_nextNote).note.length > position;
}

/*! Writes the text from \a position up to \a end, which is of one \a format. */
void ORVHtmlText::writeRun(int format, int position, int end, int base)
{
    int from = position;
    while (from < end) {
        if (m_nextNote == m_notes.size() || m_notes.at(m_nextNote).note.position >= end) {
            writePart(run(format, base), format, from, end);
            return;
        }
        const ORVHtmlNote& note = m_notes.at(m_nextNote);
        const int noteEnd = note.note.position + note.note.length;
        const int textEnd =
            note.note.holding == ORVNote::Attached ? qMin(end, noteEnd) : qMax(from, note.note.position);
        if (from < textEnd)
            writePart(run(format, base), format, from, textEnd);
        from = qMin(end, noteEnd);
        if (from < noteEnd)
            return;
        writeMark(note, run(format, base));
        ++m_nextNote;
    }
}

void ORVHtmlText::writePart(const Run& run, int format, int from, int end)
{
    if (!run.anchors.isEmpty())
        writeAnchors(run.anchors);
    // Around nothing but blanks, elements would only be in the reader's way.
    if (run.hasPlainBlanks && !run.isPicture && isBlank(m_runs.text(from), end - from))
        closeElements(commonElements(run.elements));
    else
        setElements(run.elements);
    if (run.isPicture)
        writePictures(m_runs.format(format), end - from);
    else
        m_context->output->text(m_runs.text(from), end - from);
}

void ORVHtmlText::writePictures(const QTextCharFormat& format, int count)
{
    if (m_context->output->isDry())
        return;
    const QTextImageFormat image = format.toImageFormat();
    QString address = m_context->pictures->address(*m_document, image);
    if (address.isEmpty())
        address = ORVLinkTargets::address(image.name());
    if (address.isEmpty())
        return;
    QByteArray tag = "<img src=" + ORVHtmlOutput::attributeValue(address);
    const double pixels = 96.0 / m_context->resolution;
    tag += sizeAttribute("width", image.width() * pixels) + sizeAttribute("height", image.height() * pixels);
    for (int i = 0; i < count; ++i)
        m_context->output->markup(tag + " alt=\"\">");
}

void ORVHtmlText::writeAnchors(const QStringList& names)
{
    for (const QString& name : names) {
        const QString id = ORVHtmlLinks::id(name);
        if (!id.isEmpty() && m_context->takeId(id)) {
            closeElements(0);
            m_context->output->markup("<a id=" + ORVHtmlOutput::attributeValue(id) + "></a>");
        }
    }
}

/*! A mark is a link of its own, and raised. */
void ORVHtmlText::writeMark(const ORVHtmlNote& note, const Run& run)
{
    QVector<ORVHtmlInlineElement> elements;
    bool isRaised = false;
    for (const ORVHtmlInlineElement& element : run.elements) {
        if (element.tag != QByteArray("a"))
            elements.append(element);
        isRaised = isRaised || element.tag == QByteArray("sup") || element.tag == QByteArray("sub");
    }
    if (!isRaised)
        elements.append(ORVHtmlInlineElement("sup"));
    setElements(elements);
    m_context->output->markup(ORVHtmlNotes::mark(note));
}

/*! The number of open elements, from the outer ones on, that \a elements have too. */
int ORVHtmlText::commonElements(const QVector<ORVHtmlInlineElement>& elements) const
{
    int common = 0;
    while (common < m_open.size() && common < elements.size() && m_open.at(common) == elements.at(common))
        ++common;
    return common;
}

/*! Closes the open elements but for the outer ones, as many as \a kept. */
void ORVHtmlText::closeElements(int kept)
{
    while (m_open.size() > kept) {
        closeElement(m_context->output, m_open.last());
        m_open.removeLast();
    }
}

/*! Closes the open elements that \a elements has not, and opens the others. */
void ORVHtmlText::setElements(const QVector<ORVHtmlInlineElement>& elements)
{
    closeElements(commonElements(elements));
    for (int i = int(m_open.size()); i < elements.size(); ++i) {
        const ORVHtmlInlineElement& element = elements.at(i);
        m_context->output->markup("<");
        m_context->output->markup(element.tag);
        m_context->output->markup(element.attributes);
        if (element.style >= 0) {
            m_context->sheet->use(element.style);
            m_context->output->markup(m_context->sheet->attribute(element.style));
        }
        m_context->output->markup(">");
    }
    m_open = elements;
}
