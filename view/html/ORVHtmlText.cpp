#include "ORVHtmlText_p.h"

#include "ORVHtmlContext_p.h"
#include "ORVHtmlLinks_p.h"
#include "ORVHtmlNotes_p.h"
#include "ORVTextFormat.h"

#include <QtGui/QTextDocument>
#include <QtGui/QTextFragment>

namespace {

/*! The index of the format of most of the text of \a block, which is not empty. */
int mostFrequentFormat(const QTextBlock& block)
{
    QTextBlock::iterator it = block.begin();
    const QTextFragment first = it.fragment();
    int best = first.charFormatIndex();
    if (2 * first.length() >= block.length() - 1)
        return best;
    QHash<int, int> lengths;
    for (; !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const int index = fragment.charFormatIndex();
        if ((lengths[index] += fragment.length()) > lengths.value(best))
            best = index;
    }
    return best;
}

void closeElement(ORVHtmlOutput* output, const ORVHtmlInlineElement& element)
{
    output->markup("</");
    output->markup(element.tag);
    output->markup(">");
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

ORVHtmlText::ORVHtmlText(ORVHtmlContext* context, const QTextDocument* document,
                         const QVector<ORVHtmlNote>& notes)
    : m_context(context), m_document(document),
      m_styles(context->sheet, ORVTextFormat::defaultCharFormat(document), context->language), m_notes(notes)
{
}

int ORVHtmlText::base(const QTextBlock& block, bool isHeading)
{
    const int index = block.begin().atEnd() ? block.charFormatIndex() : mostFrequentFormat(block);
    const int key = 2 * index + (isHeading ? 1 : 0);
    const QHash<int, int>::const_iterator known = m_formatBases.constFind(key);
    if (known != m_formatBases.constEnd())
        return *known;
    const QVector<QTextFormat> formats = m_document->allFormats();
    const ORVHtmlDeclarations declarations = m_styles.base(formats.at(index).toCharFormat(), isHeading);
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
    return run;
}

const ORVHtmlText::Run& ORVHtmlText::run(const QTextFragment& fragment, int base)
{
    const QPair<int, int> key(base, fragment.charFormatIndex());
    QHash<QPair<int, int>, Run>::const_iterator known = m_runs.constFind(key);
    if (known == m_runs.constEnd())
        known = m_runs.insert(key, newRun(fragment.charFormat(), base));
    return *known;
}

void ORVHtmlText::write(const QTextBlock& block, int base)
{
    for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
        writeFragment(it.fragment(), base);
    setElements(QVector<ORVHtmlInlineElement>());
    const int end = block.position() + block.length() - 1;
    m_goesOn = m_nextNote < m_notes.size() && m_notes.at(m_nextNote).note.position <= end
        && m_notes.at(m_nextNote).note.position + m_notes.at(m_nextNote).note.length > end;
}

void ORVHtmlText::writeFragment(const QTextFragment& fragment, int base)
{
    int from = fragment.position();
    const int end = from + fragment.length();
    while (from < end) {
        if (m_nextNote == m_notes.size() || m_notes.at(m_nextNote).note.position >= end) {
            writePart(fragment, run(fragment, base), from, end);
            return;
        }
        const ORVHtmlNote& note = m_notes.at(m_nextNote);
        const int noteEnd = note.note.position + note.note.length;
        const int textEnd =
            note.note.holding == ORVNote::Attached ? qMin(end, noteEnd) : qMax(from, note.note.position);
        if (from < textEnd)
            writePart(fragment, run(fragment, base), from, textEnd);
        from = qMin(end, noteEnd);
        if (from < noteEnd)
            return;
        writeMark(note, run(fragment, base));
        ++m_nextNote;
    }
}

void ORVHtmlText::writePart(const QTextFragment& fragment, const Run& run, int from, int end)
{
    if (!run.anchors.isEmpty())
        writeAnchors(run.anchors);
    setElements(run.elements);
    if (run.isPicture) {
        writePictures(fragment.charFormat(), end - from);
        return;
    }
    if (m_context->output->isDry())
        return;
    const QString text = fragment.text();
    m_context->output->text(text.constData() + from - fragment.position(), end - from);
}

void ORVHtmlText::writePictures(const QTextCharFormat& format, int count)
{
    if (m_context->output->isDry())
        return;
    const QTextImageFormat image = format.toImageFormat();
    const QString address = m_context->pictures->address(*m_document, image);
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
            setElements(QVector<ORVHtmlInlineElement>());
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

/*! Closes the open elements that \a elements has not, and opens the others. */
void ORVHtmlText::setElements(const QVector<ORVHtmlInlineElement>& elements)
{
    int common = 0;
    while (common < m_open.size() && common < elements.size() && m_open.at(common) == elements.at(common))
        ++common;
    for (int i = int(m_open.size()) - 1; i >= common; --i)
        closeElement(m_context->output, m_open.at(i));
    for (int i = common; i < elements.size(); ++i) {
        const ORVHtmlInlineElement& element = elements.at(i);
        m_context->output->markup("<");
        m_context->output->markup(element.tag);
        m_context->output->markup(element.attributes);
        if (element.style >= 0)
            m_context->output->markup(m_context->sheet->attribute(element.style));
        m_context->output->markup(">");
    }
    m_open = elements;
}
