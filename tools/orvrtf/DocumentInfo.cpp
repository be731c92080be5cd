#include "DocumentInfo.h"

#include "Messages.h"

#include <ORVRtfProperties.h>

#include <QFont>
#include <QJsonArray>
#include <QSet>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>
#include <QTextList>
#include <QTextTable>

namespace {

const int nameWidth = 12;

/*! Counts the notes of one kind over the fragments of a document, in order. */
class NoteCounter {
public:
    NoteCounter(int inLineFlag, int anchorFlag) : m_inLineFlag(inLineFlag), m_anchorFlag(anchorFlag) { }

    /*!
        A note is a run of fragments whose text is its text, over paragraph ends, or a run of fragments that
        carry the same content.
    */
    void add(const QTextCharFormat& format)
    {
        const bool inLine = format.boolProperty(m_inLineFlag);
        if (inLine && !m_inLine)
            ++m_count;
        m_inLine = inLine;
        const QByteArray content = format.boolProperty(m_anchorFlag)
            ? format.property(ORVRtfProperty::NoteContent).toByteArray()
            : QByteArray();
        if (!content.isEmpty() && content != m_content)
            ++m_count;
        m_content = content;
    }

    int count() const { return m_count; }

private:
    int m_inLineFlag;
    int m_anchorFlag;
    bool m_inLine = false;
    QByteArray m_content;
    int m_count = 0;
};

/*! Walks the fragments of a document and fills what a DocumentInfo says about them. */
class FragmentCounter {
public:
    explicit FragmentCounter(DocumentInfo& info) : m_info(info) { }

    void add(const QTextFragment& fragment)
    {
        const QTextCharFormat format = fragment.charFormat();
        m_footnotes.add(format);
        m_annotations.add(format);
        addLink(format, fragment.text().remove(QChar(QChar::ObjectReplacementCharacter)));
        if (format.isImageFormat())
            m_info.pictures += fragment.length();
        else
            addFont(fragment.charFormatIndex(), format);
    }

    /*! A link that goes on in the next paragraph counts as another one. */
    void endParagraph() { m_linkIsOpen = false; }

    void finish()
    {
        m_info.fonts = QStringList(m_families.values());
        m_info.fonts.sort(Qt::CaseInsensitive);
        m_info.footnotes = m_footnotes.count();
        m_info.annotations = m_annotations.count();
    }

private:
    void addFont(int formatIndex, const QTextCharFormat& format)
    {
        if (m_formats.contains(formatIndex))
            return;
        m_formats.insert(formatIndex);
        m_families.insert(format.font().family());
    }

    void addLink(const QTextCharFormat& format, const QString& text)
    {
        const bool isLink = format.isAnchor() && !format.anchorHref().isEmpty();
        const bool goesOn = m_linkIsOpen && isLink && m_info.links.last().target == format.anchorHref();
        m_linkIsOpen = isLink;
        if (goesOn)
            m_info.links.last().text += text;
        else if (isLink)
            m_info.links.append({text, format.anchorHref()});
    }

    DocumentInfo& m_info;
    NoteCounter m_footnotes{ORVRtfProperty::InFootnote, ORVRtfProperty::FootnoteAnchor};
    NoteCounter m_annotations{ORVRtfProperty::InAnnotation, ORVRtfProperty::AnnotationAnchor};
    QSet<int> m_formats;
    QSet<QString> m_families;
    bool m_linkIsOpen = false;
};

void countText(const QString& text, DocumentInfo& info)
{
    bool inWord = false;
    for (const QChar c : text) {
        // The second half of a character beyond U+FFFF belongs to the first; a picture is no text.
        if (c.isLowSurrogate() || c == QChar::ObjectReplacementCharacter)
            continue;
        ++info.characters;
        if (!c.isSpace() && !inWord)
            ++info.words;
        inWord = !c.isSpace();
    }
}

} // namespace

DocumentInfo::DocumentInfo(const QTextDocument& document)
{
    FragmentCounter fragments(*this);
    QSet<const QTextList*> textLists;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        ++paragraphs;
        countText(block.text(), *this);
        if (const QTextList* list = block.textList())
            textLists.insert(list);
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
            fragments.add(it.fragment());
        fragments.endParagraph();
    }
    fragments.finish();
    tables = int(document.findChildren<QTextTable*>().size());
    lists = int(textLists.size());
}

QString DocumentInfo::line(const QString& name, int number, const QString& detail)
{
    const QString text = name.leftJustified(nameWidth) + QString::number(number);
    return (detail.isEmpty() ? text : text + QLatin1String(" (") + detail + QLatin1Char(')'))
        + QLatin1Char('\n');
}

QString DocumentInfo::toText() const
{
    const QString notes = Messages::tr("%1 footnotes, %2 annotations").arg(footnotes).arg(annotations);
    return line(Messages::tr("paragraphs"), paragraphs) + line(Messages::tr("words"), words)
        + line(Messages::tr("characters"), characters)
        + line(Messages::tr("fonts"), int(fonts.size()), fonts.join(QLatin1String(", ")))
        + line(Messages::tr("pictures"), pictures) + line(Messages::tr("links"), int(links.size()))
        + line(Messages::tr("notes"), footnotes + annotations, notes) + line(Messages::tr("tables"), tables)
        + line(Messages::tr("lists"), lists);
}

QJsonObject DocumentInfo::toJson() const
{
    QJsonArray linkArray;
    for (const Link& link : links) {
        QJsonObject object;
        object.insert(QLatin1String("text"), link.text);
        object.insert(QLatin1String("target"), link.target);
        linkArray.append(object);
    }
    QJsonObject object;
    object.insert(QLatin1String("paragraphs"), paragraphs);
    object.insert(QLatin1String("words"), words);
    object.insert(QLatin1String("characters"), characters);
    object.insert(QLatin1String("fonts"), QJsonArray::fromStringList(fonts));
    object.insert(QLatin1String("pictures"), pictures);
    object.insert(QLatin1String("links"), linkArray);
    object.insert(QLatin1String("notes"), footnotes + annotations);
    object.insert(QLatin1String("footnotes"), footnotes);
    object.insert(QLatin1String("annotations"), annotations);
    object.insert(QLatin1String("tables"), tables);
    object.insert(QLatin1String("lists"), lists);
    return object;
}
