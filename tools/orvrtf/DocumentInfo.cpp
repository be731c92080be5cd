#include "DocumentInfo.h"

#include "Messages.h"

#include <ORVNotes.h>
#include <ORVTextListLabels.h>
#include <ORVTextPage.h>

#include <QDateTime>
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

/*! A property of the document, and its label in the output. */
struct Detail {
    const char* property;
    const char* name;
};

const Detail texts[] = {
    {"author", QT_TRANSLATE_NOOP("orvrtf", "author")},
    {"lastAuthor", QT_TRANSLATE_NOOP("orvrtf", "last author")},
    {"subject", QT_TRANSLATE_NOOP("orvrtf", "subject")},
    {"keywords", QT_TRANSLATE_NOOP("orvrtf", "keywords")},
    {"comment", QT_TRANSLATE_NOOP("orvrtf", "comment")},
    {"manager", QT_TRANSLATE_NOOP("orvrtf", "manager")},
    {"company", QT_TRANSLATE_NOOP("orvrtf", "company")},
    {"category", QT_TRANSLATE_NOOP("orvrtf", "category")},
};
// "modified" is a property of every QTextDocument: whether it has been changed.
const Detail dates[] = {
    {"created", QT_TRANSLATE_NOOP("orvrtf", "created")},
    {"lastModified", QT_TRANSLATE_NOOP("orvrtf", "modified")},
    {"printed", QT_TRANSLATE_NOOP("orvrtf", "printed")},
};
const Detail marginTexts[] = {
    {"header", QT_TRANSLATE_NOOP("orvrtf", "header")},
    {"footer", QT_TRANSLATE_NOOP("orvrtf", "footer")},
};

/*! What \a document says that it is; empty texts and dates that are not known are left out. */
QVector<DocumentInfo::Description> descriptionsOf(const QTextDocument& document)
{
    QVector<DocumentInfo::Description> descriptions;
    const auto add = [&descriptions](const Detail& detail, const QString& text) {
        if (!text.isEmpty())
            descriptions.append({QLatin1String(detail.property), Messages::tr(detail.name), text});
    };
    add({"title", QT_TRANSLATE_NOOP("orvrtf", "title")},
        document.metaInformation(QTextDocument::DocumentTitle));
    for (const Detail& detail : texts)
        add(detail, document.property(detail.property).toString());
    for (const Detail& detail : dates)
        add(detail,
            document.property(detail.property).toDateTime().toString(QLatin1String("yyyy-MM-ddTHH:mm")));
    for (const Detail& detail : marginTexts) {
        QString text = qvariant_cast<ORVTextPage>(document.property(detail.property)).text;
        add(detail, text.replace(QChar::LineSeparator, QLatin1Char('\n')));
    }
    return descriptions;
}

/*! Walks the fragments of a document and fills what a DocumentInfo says about them. */
class FragmentCounter {
public:
    explicit FragmentCounter(DocumentInfo& info) : m_info(info) { }

    void add(const QTextFragment& fragment)
    {
        const QTextCharFormat format = fragment.charFormat();
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

DocumentInfo::DocumentInfo(const QTextDocument& document) : descriptions(descriptionsOf(document))
{
    const QVector<ORVNote> notes = ORVNotes::all(&document);
    for (const ORVNote& note : notes)
        ++(note.kind == ORVNote::Comment       ? annotations
               : note.kind == ORVNote::Endnote ? endnotes
                                               : footnotes);
    FragmentCounter fragments(*this);
    const ORVTextListLabels labels(&document);
    QSet<int> foundLists;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        ++paragraphs;
        countText(block.text(), *this);
        if (block.textList())
            foundLists.insert(labels.label(block).list);
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it)
            fragments.add(it.fragment());
        fragments.endParagraph();
    }
    fragments.finish();
    tables = int(document.findChildren<QTextTable*>().size());
    lists = int(foundLists.size());
}

QString DocumentInfo::line(const QString& name, int number, const QString& detail)
{
    const QString text = QString::number(number);
    return line(name, detail.isEmpty() ? text : text + QLatin1String(" (") + detail + QLatin1Char(')'));
}

QString DocumentInfo::line(const QString& name, const QString& text)
{
    return name.leftJustified(nameWidth - 1) + QLatin1Char(' ') + text + QLatin1Char('\n');
}

QString DocumentInfo::toText() const
{
    QString text;
    for (const Description& description : descriptions)
        text += line(description.name, description.text.simplified());
    const QString notes = Messages::tr("%1 footnotes, %2 endnotes, %3 annotations")
                              .arg(footnotes)
                              .arg(endnotes)
                              .arg(annotations);
    return text + line(Messages::tr("paragraphs"), paragraphs) + line(Messages::tr("words"), words)
        + line(Messages::tr("characters"), characters)
        + line(Messages::tr("fonts"), int(fonts.size()), fonts.join(QLatin1String(", ")))
        + line(Messages::tr("pictures"), pictures) + line(Messages::tr("links"), int(links.size()))
        + line(Messages::tr("notes"), footnotes + endnotes + annotations, notes)
        + line(Messages::tr("tables"), tables) + line(Messages::tr("lists"), lists);
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
    for (const Description& description : descriptions)
        object.insert(description.key, description.text);
    object.insert(QLatin1String("paragraphs"), paragraphs);
    object.insert(QLatin1String("words"), words);
    object.insert(QLatin1String("characters"), characters);
    object.insert(QLatin1String("fonts"), QJsonArray::fromStringList(fonts));
    object.insert(QLatin1String("pictures"), pictures);
    object.insert(QLatin1String("links"), linkArray);
    object.insert(QLatin1String("notes"), footnotes + endnotes + annotations);
    object.insert(QLatin1String("footnotes"), footnotes);
    object.insert(QLatin1String("endnotes"), endnotes);
    object.insert(QLatin1String("annotations"), annotations);
    object.insert(QLatin1String("tables"), tables);
    object.insert(QLatin1String("lists"), lists);
    return object;
}
