#include "ORVRtfCodePages_p.h"
#include "ORVRtfFieldTarget_p.h"
#include "ORVRtfInterchangeReader_p.h"
#include "ORVRtfLimits_p.h"
#include "ORVRtfPageTags_p.h"
#include "ORVRtfSymbolField_p.h"

#include <algorithm>
#include <utility>

namespace {

const ushort emptyBox = 0x2610;
const ushort checkedBox = 0x2612;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

} // namespace

void ORVRtfInterchangeReader::beginField()
{
    m_own.isInOperandField = m_own.isInOperandField || isIn(FieldInstructionGroup);
    m_fieldInstruction.clear();
    m_text.field = ORVRtfOpenField();
    openDestination(FieldGroup);
}

/*! A field that another one works with shows nothing; page numbers of headers are those of the page. */
void ORVRtfInterchangeReader::beginFieldResult()
{
    if (m_own.isInOperandField || isPageField())
        ++m_skipDepth;
    openDestination(FieldResultGroup);
}

/*! Some fields are shown although their result shows nothing. */
void ORVRtfInterchangeReader::endField()
{
    const ORVRtfOpenField& field = m_text.field;
    if (isPageField()) {
        const bool isCount = ORVRtfFieldTarget::isField(m_fieldInstruction, "NUMPAGES");
        m_textBehindGroup = QLatin1String(isCount ? ORVRtfPageTags::pageCount : ORVRtfPageTags::pageNumber);
    } else if (ORVRtfFieldTarget::isField(m_fieldInstruction, "FORMCHECKBOX")) {
        const int result = field.formResult == ORVRtfOpenField::unset ? field.formDefault : field.formResult;
        m_textBehindGroup = QChar(result == 0 ? emptyBox : checkedBox);
    } else if (!field.hasResult) {
        m_textBehindGroup = ORVRtfSymbolField::text(m_fieldInstruction, m_documentCodePage, m_decoder);
    }
}

/*! A page number in a header or footer. */
bool ORVRtfInterchangeReader::isPageField() const
{
    return isInPageText()
        && (ORVRtfFieldTarget::isField(m_fieldInstruction, "PAGE")
            || ORVRtfFieldTarget::isField(m_fieldInstruction, "NUMPAGES"));
}

/*! The groups within the instruction are parts of it; a link begins with the group of the result. */
void ORVRtfInterchangeReader::finalizeFieldInstruction()
{
    if (m_own.isInOperandField || m_groups.top().destination != FieldGroup)
        return;
    const QString target = ORVRtfFieldTarget::of(m_fieldInstruction);
    if (!target.isNull())
        setLink(m_groups.top().charFormat, target);
}

/*! A bookmark is where it begins: at the next character. */
void ORVRtfInterchangeReader::addAnchorName()
{
    const QString name = m_bookmark.trimmed().left(ORVRtfLimits::bookmarkName);
    if (name.isEmpty() || m_bookmarksLeft == 0)
        return;
    --m_bookmarksLeft;
    m_text.anchorNames.append(name);
}

/*! Gives \a format the names of the bookmarks that wait for a character. */
void ORVRtfInterchangeReader::setAnchorNames(QTextCharFormat& format)
{
    if (m_text.anchorNames.isEmpty())
        return;
    const QStringList names = std::exchange(m_text.anchorNames, QStringList());
    format.setAnchor(true);
    m_anchorSerials.setList(format, QTextFormat::AnchorName, names.join(QLatin1String("\n")).toUtf8(),
                            [&names] { return QVariant(names); });
}

/*! Draws the first character of the text with the names of the bookmarks that wait. */
void ORVRtfInterchangeReader::drawAnchoredCharacter()
{
    if (m_pendingText.isEmpty())
        return;
    const QString text = m_pendingText;
    const QTextCharFormat format = m_state.charFormat;
    const int length = text.at(0).isHighSurrogate() && text.size() > 1 ? 2 : 1;
    setAnchorNames(m_state.charFormat);
    m_pendingText = text.left(length);
    ORVTextRtfReaderPrivate::drawBodyText();
    m_state.charFormat = format;
    m_pendingText = text.mid(length);
}

/*! Labels of list items are made anew. AbiWord writes whole items in their groups, which are text. */
void ORVRtfInterchangeReader::beginListText()
{
    if (isInBodyText() && (m_own.isInListText || hasParagraphEnd()))
        m_own.isInListText = true;
    else
        ++m_skipDepth;
}

/*! Whether the end of a paragraph stands in the group that goes on at the read position. */
bool ORVRtfInterchangeReader::hasParagraphEnd()
{
    const char word[] = "\\par";
    const int length = int(sizeof(word)) - 1;
    int depth = 1;
    bool ok = true;
    for (int i = 0; ok && depth > 0 && i < ORVRtfLimits::listText; ++i) {
        const char c = m_input.charAt(i, &ok);
        if (c == '{')
            ++depth;
        else if (c == '}')
            --depth;
        if (c != '\\')
            continue;
        // The look-ahead fetches a line, so the word is complete if it stands there at all.
        m_input.charAt(i + length);
        const char* const text = m_input.data() + i;
        if (m_input.available() - i > length && std::equal(word, word + length, text)
            && !isLetter(text[length]))
            return true;
        ++i;
    }
    return false;
}
