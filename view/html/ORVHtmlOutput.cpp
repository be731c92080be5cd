#include "ORVHtmlOutput_p.h"

#include <QtCore/QIODevice>

#include <cstring>

namespace {

// In bytes: large enough that a device is not called for each paragraph.
const int portion = 1 << 16;

const char* replacementOf(ushort character)
{
    switch (character) {
    case '<': return "&lt;";
    case '>': return "&gt;";
    case '&': return "&amp;";
    case QChar::Nbsp: return "&nbsp;";
    case QChar::SoftHyphen: return "&shy;";
    // Without a line feed, which would be another break in a paragraph that keeps its blanks.
    case QChar::LineSeparator: return "<br>";
    // A mark of the document's own structure.
    case QChar::ObjectReplacementCharacter: return "";
    default: return ORVHtmlOutput::isAllowed(QChar(character)) ? nullptr : "";
    }
}

} // namespace

ORVHtmlOutput::ORVHtmlOutput(QIODevice* device) : m_device(device)
{
    if (m_device)
        m_buffer.reserve(2 * portion);
}

void ORVHtmlOutput::append(const char* data, int size)
{
    if (isDry())
        return;
    m_buffer.append(data, size);
    if (m_buffer.size() >= portion)
        flush();
}

void ORVHtmlOutput::markup(const char* html)
{
    append(html, int(std::strlen(html)));
}

void ORVHtmlOutput::markup(const QByteArray& html)
{
    append(html.constData(), int(html.size()));
}

void ORVHtmlOutput::text(const QChar* text, int length)
{
    if (isDry())
        return;
    int written = 0;
    for (int i = 0; i < length; ++i) {
        const ushort character = text[i].unicode();
        // Letters are most of the text.
        if ((character > '>' && character < 0x7f) || character == ' ')
            continue;
        if (const char* const replacement = replacementOf(character)) {
            plainText(text + written, i - written);
            markup(replacement);
            written = i + 1;
        }
    }
    plainText(text + written, length - written);
}

/*! Writes text without markup. */
void ORVHtmlOutput::plainText(const QChar* text, int length)
{
    int ascii = 0;
    while (ascii < length && text[ascii].unicode() < 0x80)
        ++ascii;
    if (ascii < length) {
        markup(QString::fromRawData(text, length).toUtf8());
        return;
    }
    const int size = int(m_buffer.size());
    m_buffer.resize(size + length);
    char* const bytes = m_buffer.data() + size;
    for (int i = 0; i < length; ++i)
        bytes[i] = char(text[i].unicode());
    if (m_buffer.size() >= portion)
        flush();
}

void ORVHtmlOutput::flush()
{
    if (!m_hasFailed)
        m_hasFailed = m_device->write(m_buffer) != m_buffer.size();
    // Keeps the memory, unlike clear().
    m_buffer.resize(0);
}

bool ORVHtmlOutput::finish()
{
    if (!isDry() && !m_buffer.isEmpty())
        flush();
    return !m_hasFailed;
}

bool ORVHtmlOutput::isAllowed(QChar character)
{
    const ushort code = character.unicode();
    const bool isControl = (code < 0x20 && code != '\t' && code != '\n') || (code >= 0x7f && code < 0xa0);
    const bool isNoCharacter = (code >= 0xfdd0 && code <= 0xfdef) || code >= 0xfffe;
    return !isControl && !isNoCharacter;
}

QByteArray ORVHtmlOutput::escaped(const QString& text)
{
    QString allowed;
    for (const QChar character : text) {
        if (isAllowed(character))
            allowed += character;
    }
    return allowed.toHtmlEscaped().toUtf8();
}

QByteArray ORVHtmlOutput::attributeValue(const QString& value)
{
    return '"' + escaped(value) + '"';
}
