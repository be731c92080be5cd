#include "ORVRtfOutput_p.h"

#include "ORVRtfPageTags_p.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdio>

namespace {

// The private characters that replace tags for page numbers during writing.
const ushort pageNumberPlaceholder = 0xE000;
const ushort pageCountPlaceholder = 0xE001;
const ushort pageReferencePlaceholder = 0xE002;

bool isPlainAscii(ushort unit)
{
    return unit >= 0x20 && unit <= 0x7F;
}

bool isBraceOrBackslash(ushort unit)
{
    return unit == '{' || unit == '}' || unit == '\\';
}

} // namespace

void ORVRtfOutput::begin()
{
    m_sink.begin();
    m_keywordPending = false;
}

bool ORVRtfOutput::write(const char* spelling)
{
    m_sink.append(QLatin1String(spelling));
    m_keywordPending = true;
    return !m_sink.hasFailed();
}

bool ORVRtfOutput::write(ORVTextRtfCommon::KeyWord keyWord)
{
    m_sink.append(ORVTextRtfCommon::toLatin1(keyWord));
    m_keywordPending = true;
    return !m_sink.hasFailed();
}

bool ORVRtfOutput::write(const char* spelling, int value)
{
    m_sink.append(QLatin1String(spelling));
    m_sink.appendNumber(value);
    m_keywordPending = true;
    return !m_sink.hasFailed();
}

bool ORVRtfOutput::write(ORVTextRtfCommon::KeyWord keyWord, int value)
{
    write(keyWord);
    m_sink.appendNumber(value);
    return !m_sink.hasFailed();
}

void ORVRtfOutput::writeWords(const QByteArray& words)
{
    m_sink.append(words.constData(), words.size());
    m_keywordPending = true;
}

void ORVRtfOutput::writeStructure(char c)
{
    m_sink.append(c);
    m_keywordPending = false;
}

void ORVRtfOutput::openIgnorableGroup(ORVTextRtfCommon::KeyWord keyWord)
{
    openGroup();
    write(ORVTextRtfCommon::OptionalDestination);
    write(keyWord);
}

void ORVRtfOutput::endKeyword()
{
    if (m_keywordPending)
        writeStructure(' ');
}

void ORVRtfOutput::writeClosedWord(ORVTextRtfCommon::KeyWord keyWord)
{
    write(keyWord);
    endKeyword();
}

void ORVRtfOutput::writeRaw(const char* rtf)
{
    m_sink.append(QLatin1String(rtf));
    m_keywordPending = false;
}

bool ORVRtfOutput::writePrintableCharacters(QString text, int fontNumber, bool leadingSpace, bool verbatim,
                                            const QString& bookmark)
{
    if (m_exportingMode) {
        const ushort page = bookmark.isEmpty() ? pageNumberPlaceholder : pageReferencePlaceholder;
        text.replace(QLatin1String(ORVRtfPageTags::pageNumber), QString(QChar(page)));
        text.replace(QLatin1String(ORVRtfPageTags::pageCount), QString(QChar(pageCountPlaceholder)));
    }
    if (leadingSpace)
        endKeyword();

    bool preambleWritten = false;
    const ushort* const units = reinterpret_cast<const ushort*>(text.constData());
    const qint64 size = text.size();
    for (qint64 i = 0; i < size; ++i) {
        qint64 end = i;
        while (end < size && isPlainAscii(units[end]) && (verbatim || !isBraceOrBackslash(units[end])))
            ++end;
        m_sink.appendLatin1(units + i, end - i);
        i = end;
        if (i == size || (!verbatim && writeSpecialCharacter(units[i], fontNumber, bookmark)))
            continue;
        if (units[i] < 0x20)
            writeEscapedByte(units[i]);
        else
            writeUnicode(units[i], fontNumber, preambleWritten);
    }
    m_keywordPending = false;
    return true;
}

/*! Writes \a unit if it has a control word or escape of its own; false otherwise. */
bool ORVRtfOutput::writeSpecialCharacter(ushort unit, int fontNumber, const QString& bookmark)
{
    switch (unit) {
    case '\t': writeClosedWord(ORVTextRtfCommon::TabCharacter); return true;
    case '\\': writeRaw("\\\\"); return true;
    case '{': writeRaw("\\{"); return true;
    case '}': writeRaw("\\}"); return true;
    case 0x00A0: writeRaw("\\~"); return true;
    case 0x2013: writeClosedWord(ORVTextRtfCommon::EnDash); return true;
    case 0x2014:
        // The dash belongs to the font's upper half, what follows to its lower one.
        write(ORVTextRtfCommon::HighAnsiCharacters);
        write(ORVTextRtfCommon::Font, fontNumber);
        endKeyword();
        writeClosedWord(ORVTextRtfCommon::EmDash);
        write(ORVTextRtfCommon::LowAnsiCharacters);
        write(ORVTextRtfCommon::Font, fontNumber);
        endKeyword();
        return true;
    case 0x2022: writeClosedWord(ORVTextRtfCommon::Bullet); return true;
    case 0x2028: writeClosedWord(ORVTextRtfCommon::SoftLineBreak); return true;
    case pageNumberPlaceholder:
    case pageCountPlaceholder:
    case pageReferencePlaceholder: writePageField(unit, bookmark); return true;
    default: return false;
    }
}

void ORVRtfOutput::writePageField(ushort placeholder, const QString& bookmark)
{
    openGroup();
    if (placeholder == pageNumberPlaceholder) {
        write(ORVTextRtfCommon::PageNumber);
        closeGroup();
        return;
    }
    const bool isCount = placeholder == pageCountPlaceholder;
    write(ORVTextRtfCommon::Field);
    openIgnorableGroup(ORVTextRtfCommon::FieldInstruction);
    if (isCount)
        writeRaw("{NUMPAGES}");
    else
        writeRaw(QString::fromLatin1("{PAGEREF %1 \\h}").arg(escaped(bookmark)).toLatin1().constData());
    closeGroup();
    openGroup();
    write(ORVTextRtfCommon::FieldResult);
    writeRaw(isCount ? " 1" : " ?");
    closeGroup();
    closeGroup();
}

void ORVRtfOutput::writeEscapedByte(int byte)
{
    char escape[8];
    m_sink.append(escape, std::snprintf(escape, sizeof(escape), "\\'%02X", byte & 0xFF));
}

/*! Writes a Unicode character, followed by one byte of code page 1252 for programs without Unicode. */
void ORVRtfOutput::writeUnicode(ushort unit, int fontNumber, bool& preambleWritten)
{
    if (!preambleWritten) {
        write(ORVTextRtfCommon::LowAnsiCharacters);
        write(ORVTextRtfCommon::AssociatedFont, fontNumber);
        write(ORVTextRtfCommon::HighAnsiCharacters);
        write(ORVTextRtfCommon::AssociatedFont, fontNumber);
        write(ORVTextRtfCommon::DoubleAnsiCharacters);
        write(ORVTextRtfCommon::AssociatedFont, fontNumber);
        write(ORVTextRtfCommon::UnicodeCharacterBytes, 1);
        preambleWritten = true;
    }
    write(ORVTextRtfCommon::UnicodeCharacterValue, unit);
    writeEscapedByte(ORVTextRtfCommon::unicodeToAnsi1252(unit));
}

bool ORVRtfOutput::writeHexadecimalCharacters(const QByteArray& data)
{
    // Pictures have megabytes, so they are converted in pieces.
    const int pieceSize = ORVRtfSink::capacity / 2;
    qint64 written = 0;
    for (int begin = 0; begin < data.size(); begin += pieceSize) {
        const QByteArray digits =
            QByteArray::fromRawData(data.constData() + begin, qMin(pieceSize, int(data.size()) - begin))
                .toHex();
        m_sink.append(digits.constData(), digits.size());
        written += digits.size();
    }
    m_keywordPending = false;
    return written == data.size();
}

QString ORVRtfOutput::escaped(const QString& text)
{
    QString result;
    for (const QChar& c : text) {
        if (isBraceOrBackslash(c.unicode()))
            result += QLatin1Char('\\');
        result += c;
    }
    return result;
}
