#include "PdfNavigation.h"

#include <ORVPagePainter.h>
#include <ORVRtfProperties.h>

#include <QHash>
#include <QTextBlock>
#include <QTextDocument>
#include <QVariant>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>

#include <exception>
#include <vector>

namespace {

typedef QPDFObjectHandle Object;

// As many entries of the outline are shown at first, if they are those of whole levels.
const int mostOpenEntries = 40;

Object text(const QString& text)
{
    return Object::newUnicodeString(text.toStdString());
}

Object number(double number)
{
    return Object::newReal(number, 2);
}

/*! The language that \a document states, else that of most of its text; empty when it is not known. */
QString languageOf(const QTextDocument& document)
{
    QString stated = document.property("language").toString();
    if (!stated.isEmpty())
        return stated;
    QHash<QString, int> lengths;
    QString mostFrequent;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QString language = it.fragment().charFormat().stringProperty(ORVRtfProperty::Language);
            const int length = lengths[language] += it.fragment().length();
            if (length > lengths.value(mostFrequent))
                mostFrequent = language;
        }
    }
    return mostFrequent;
}

/*! A heading in the tree of the outline: relatives are indexes of others, and -1 stands for none. */
struct Entry {
    int depth = 0;
    int parent = -1;
    int first = -1;
    int last = -1;
    int previous = -1;
    int next = -1;
    /*! The entries below it that are seen when it is open. */
    int visible = 0;
};

/*! The tree of \a headings: each stands below the nearest one in front of it that has a higher level. */
std::vector<Entry> entriesOf(const QVector<ORVPageHeading>& headings)
{
    std::vector<Entry> entries(headings.size());
    for (int i = 0; i < headings.size(); ++i) {
        Entry& entry = entries[i];
        int elder = i - 1;
        int younger = -1;
        while (elder >= 0 && headings.at(elder).level >= headings.at(i).level) {
            younger = elder;
            elder = entries[elder].parent;
        }
        entry.parent = elder;
        entry.previous = younger;
        entry.depth = elder < 0 ? 0 : entries[elder].depth + 1;
        if (younger >= 0)
            entries[younger].next = i;
        if (elder >= 0) {
            if (entries[elder].first < 0)
                entries[elder].first = i;
            entries[elder].last = i;
        }
    }
    return entries;
}

/*! The lowest level, counted from 0, whose entries are shown at first. */
int openDepth(const std::vector<Entry>& entries)
{
    std::vector<int> counts;
    for (const Entry& entry : entries) {
        const std::size_t level = std::size_t(entry.depth);
        if (counts.size() <= level)
            counts.resize(level + 1, 0);
        ++counts[level];
    }
    int shown = counts.at(0);
    std::size_t depth = 0;
    while (depth + 1 < counts.size() && shown + counts[depth + 1] <= mostOpenEntries)
        shown += counts[++depth];
    return int(depth);
}

/*! Counts for all \a entries what is visible below them. Returns the number of those that are shown at first. */
int countVisible(std::vector<Entry>& entries, int depth)
{
    int shown = 0;
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        int& above = entry->parent < 0 ? shown : entries[std::size_t(entry->parent)].visible;
        above += 1 + (entry->depth < depth ? entry->visible : 0);
    }
    return shown;
}

/*! Sets what leads from \a object, that of \a entry, to the objects of its relatives. */
void setRelatives(const Entry& entry, const std::vector<Object>& objects, Object* object)
{
    const struct {
        const char* key;
        int entry;
    } relatives[] = {
        {"/First", entry.first}, {"/Last", entry.last}, {"/Prev", entry.previous}, {"/Next", entry.next}};
    for (const auto& relative : relatives) {
        if (relative.entry >= 0)
            object->replaceKey(relative.key, objects[std::size_t(relative.entry)]);
    }
}

/*! Writes what makes a file easy to find one's way in. */
class Navigator {
public:
    Navigator(QPDF* pdf, const ORVPagePainter& pages)
        : m_pdf(pdf), m_pages(pdf->getAllPages()), m_height(pages.paperSize().height())
    {
    }

    void writeInformation(const QTextDocument& document);
    void writeOutline(const QVector<ORVPageHeading>& headings);
    void writeLinks(const QVector<ORVPageLink>& links);

private:
    Object destination(const ORVPagePlace& place) const;
    Object annotation(const ORVPageLink& link) const;

    QPDF* m_pdf;
    std::vector<Object> m_pages;
    double m_height;
};

void Navigator::writeInformation(const QTextDocument& document)
{
    const struct {
        const char* property;
        const char* key;
    } texts[] = {{"author", "/Author"}, {"subject", "/Subject"}, {"keywords", "/Keywords"}};
    Object information = m_pdf->getTrailer().getKey("/Info");
    for (const auto& entry : texts) {
        const QString value = document.property(entry.property).toString();
        if (!value.isEmpty())
            information.replaceKey(entry.key, text(value));
    }
    if (document.metaInformation(QTextDocument::DocumentTitle).isEmpty())
        information.removeKey("/Title");
    const QString language = languageOf(document);
    if (!language.isEmpty())
        m_pdf->getRoot().replaceKey("/Lang", text(language));
    // Newer versions of Qt repeat there what they know.
    m_pdf->getRoot().removeKey("/Metadata");
}

/*! The place at the top of the window; the rest of how a page is shown stays. */
Object Navigator::destination(const ORVPagePlace& place) const
{
    return Object::newArray({m_pages.at(place.page), Object::newName("/XYZ"), Object::newNull(),
                             number(m_height - place.position.y()), Object::newNull()});
}

void Navigator::writeOutline(const QVector<ORVPageHeading>& headings)
{
    if (headings.isEmpty())
        return;
    std::vector<Entry> entries = entriesOf(headings);
    const int depth = openDepth(entries);
    Object outline = m_pdf->makeIndirectObject(Object::newDictionary());
    outline.replaceKey("/Type", Object::newName("/Outlines"));
    outline.replaceKey("/Count", Object::newInteger(countVisible(entries, depth)));
    std::vector<Object> objects;
    for (const ORVPageHeading& heading : headings) {
        objects.push_back(m_pdf->makeIndirectObject(Object::newDictionary()));
        objects.back().replaceKey("/Title", text(heading.title));
        objects.back().replaceKey("/Dest", destination(heading.place));
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const Entry& entry = entries[i];
        if (entry.visible > 0)
            objects[i].replaceKey("/Count",
                                  Object::newInteger(entry.depth < depth ? entry.visible : -entry.visible));
        objects[i].replaceKey("/Parent", entry.parent < 0 ? outline : objects[std::size_t(entry.parent)]);
        setRelatives(entry, objects, &objects[i]);
        if (entry.parent < 0)
            outline.replaceKey("/Last", objects[i]);
    }
    outline.replaceKey("/First", objects.front());
    m_pdf->getRoot().replaceKey("/Outlines", outline);
}

Object Navigator::annotation(const ORVPageLink& link) const
{
    Object annotation = Object::newDictionary();
    annotation.replaceKey("/Type", Object::newName("/Annot"));
    annotation.replaceKey("/Subtype", Object::newName("/Link"));
    annotation.replaceKey("/Rect",
                          Object::newArray({number(link.area.left()), number(m_height - link.area.bottom()),
                                            number(link.area.right()), number(m_height - link.area.top())}));
    const Object none = Object::newInteger(0);
    annotation.replaceKey("/Border", Object::newArray({none, none, none}));
    if (link.uri.isEmpty()) {
        annotation.replaceKey("/Dest", destination(link.target));
        return annotation;
    }
    Object action = Object::newDictionary();
    action.replaceKey("/S", Object::newName("/URI"));
    action.replaceKey("/URI", Object::newString(link.uri.toStdString()));
    annotation.replaceKey("/A", action);
    return annotation;
}

void Navigator::writeLinks(const QVector<ORVPageLink>& links)
{
    std::vector<std::vector<Object>> annotations(m_pages.size());
    for (const ORVPageLink& link : links)
        annotations.at(link.page).push_back(m_pdf->makeIndirectObject(annotation(link)));
    for (std::size_t i = 0; i < m_pages.size(); ++i) {
        if (annotations[i].empty())
            m_pages[i].removeKey("/Annots");
        else
            m_pages[i].replaceKey("/Annots", Object::newArray(annotations[i]));
    }
}

/*! What Qt has compressed stays as it is, and the same file gives the same file. */
QByteArray written(QPDF& pdf)
{
    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setStreamDataMode(qpdf_s_preserve);
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> data = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char*>(data->getBuffer()), int(data->getSize()));
}

} // namespace

extern "C" Q_DECL_EXPORT void orvrtfAddPdfNavigation(const QByteArray& pdf, const ORVPagePainter& pages,
                                                     const QTextDocument& document, QByteArray* result)
{
    try {
        QPDF file;
        file.processMemoryFile("pages", pdf.constData(), std::size_t(pdf.size()));
        Navigator navigator(&file, pages);
        navigator.writeInformation(document);
        navigator.writeOutline(pages.headings());
        navigator.writeLinks(pages.links());
        *result = written(file);
    } catch (const std::exception&) {
        result->clear();
    }
}
