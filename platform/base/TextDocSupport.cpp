#include "TextDocSupport.h"

#include "QtFontCompat_p.h"

#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFrame>
#include <QtGui/QTextList>
#include <QtGui/QTextOption>

namespace {

/*! The URL that names in \a document are relative to; empty where documents have none. */
QUrl baseUrl(const QTextDocument* document)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 3, 0)
    return document->baseUrl();
#else
    Q_UNUSED(document);
    return QUrl();
#endif
}

/*! Gives \a document the base URL \a url, where documents have one. */
void setBaseUrl(QTextDocument* document, const QUrl& url)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 3, 0)
    document->setBaseUrl(url);
#else
    Q_UNUSED(document);
    Q_UNUSED(url);
#endif
}

/*!
    Copies a document that is one empty list item. QTextDocument::clone() would copy a reference to a list
    that the copy does not have, and newer Qt versions crash on it.
*/
QTextDocument* cloneEmptyDocument(const QTextDocument* document, QObject* parent)
{
    QTextDocument* copy = new QTextDocument(parent);
    copy->setMetaInformation(QTextDocument::DocumentTitle,
                             document->metaInformation(QTextDocument::DocumentTitle));
    copy->setMetaInformation(QTextDocument::DocumentUrl,
                             document->metaInformation(QTextDocument::DocumentUrl));
    copy->setPageSize(document->pageSize());
    copy->setIndentWidth(document->indentWidth());
    copy->setDefaultStyleSheet(document->defaultStyleSheet());
    copy->setDefaultTextOption(document->defaultTextOption());
    copy->setDefaultFont(document->defaultFont());
    return copy;
}

QTextDocument* cloneContent(const QTextDocument* document, QObject* parent)
{
    if (document->isEmpty() && document->begin().textList())
        return cloneEmptyDocument(document, parent);
    return document->clone(parent);
}

/*! Puts the first block of \a copy, which clone() left out, into its place in the copy of \a list. */
void joinList(QTextList* list, QTextDocument* copy)
{
    if (list->count() > 1) {
        const QTextBlock sibling = copy->findBlockByNumber(list->item(1).blockNumber());
        if (QTextList* copiedList = sibling.textList())
            copiedList->add(copy->begin());
        return;
    }
    QTextCursor(copy).createList(list->format());
}

/*! clone() loses the formats of a blank first block and its place in a list. */
void restoreBlankFirstBlock(const QTextDocument* document, QTextDocument* copy)
{
    const QTextBlock first = document->begin();
    if (first.length() > 1)
        return;
    QTextBlockFormat blockFormat = first.blockFormat();
    blockFormat.clearProperty(QTextFormat::ObjectIndex);
    QTextCharFormat charFormat = first.charFormat();
    charFormat.clearProperty(QTextFormat::ObjectIndex);
    QTextCursor cursor(copy);
    cursor.setBlockFormat(blockFormat);
    cursor.setBlockCharFormat(charFormat);
    if (QTextList* list = first.textList())
        joinList(list, copy);
}

/*! Copies those properties of the document itself that clone() leaves out. */
void restoreProperties(const QTextDocument* document, QTextDocument* copy)
{
    const QList<QByteArray> names = document->dynamicPropertyNames();
    for (const QByteArray& name : names)
        copy->setProperty(name.constData(), document->property(name.constData()));
    setBaseUrl(copy, baseUrl(document));
    copy->setDefaultCursorMoveStyle(document->defaultCursorMoveStyle());
    // The document margin also sets the margins of the root frame, which may have others of its own.
    copy->setDocumentMargin(document->documentMargin());
    copy->rootFrame()->setFrameFormat(document->rootFrame()->frameFormat());
}

/*!
    A parent without resources. When a resource with the name of a file is missing, QTextDocument reads the
    file, unless its parent is a document: then it asks the parent instead.
*/
class EmptyResources : public QTextDocument {
protected:
    QVariant loadResource(int, const QUrl&) override { return QVariant(); }
};

/*! The resource \a url of \a document; never a file on disk, although \a url may name one. */
QVariant storedResource(const QTextDocument* document, const QUrl& url)
{
    QTextDocument* changed = const_cast<QTextDocument*>(document);
    QObject* parent = changed->parent();
    EmptyResources guard;
    if (guard.thread() != changed->thread())
        guard.moveToThread(changed->thread());
    changed->setParent(&guard);
    QVariant resource = document->resource(QTextDocument::ImageResource, url);
    changed->setParent(parent);
    return resource;
}

/*! The resource \a url of \a document. \a scheme is that of \a url resolved against the base URL. */
QVariant resource(const QTextDocument* document, const QUrl& url, const QString& scheme)
{
    if (scheme.isEmpty() || scheme == QLatin1String("file"))
        return storedResource(document, url);
    // Of a data: URL the document would make a pixmap, which needs a QGuiApplication, if an image is asked
    // for.
    const bool isData = scheme == QLatin1String("data");
    return document->resource(isData ? QTextDocument::UserResource : QTextDocument::ImageResource, url);
}

QImage toImage(const QVariant& resource)
{
    switch (resource.userType()) {
    case QMetaType::QImage: return qvariant_cast<QImage>(resource);
    case QMetaType::QPixmap: return compat::hasGui() ? qvariant_cast<QPixmap>(resource).toImage() : QImage();
    case QMetaType::QByteArray: return QImage::fromData(resource.toByteArray());
    default: return QImage();
    }
}

/*! Removes the page break after \a block if \a movesAfter, and adds one before it if \a addsBefore. */
void setPageBreaks(const QTextBlock& block, bool addsBefore, bool movesAfter)
{
    QTextBlockFormat format = block.blockFormat();
    int policy = format.intProperty(QTextFormat::PageBreakPolicy);
    if (movesAfter)
        policy &= ~QTextFormat::PageBreak_AlwaysAfter;
    if (addsBefore)
        policy |= QTextFormat::PageBreak_AlwaysBefore;
    if (policy == 0)
        format.clearProperty(QTextFormat::PageBreakPolicy);
    else
        format.setProperty(QTextFormat::PageBreakPolicy, policy);
    QTextCursor(block).setBlockFormat(format);
}

} // namespace

QTextDocument* TextDocSupport::cloneDocumentQtStyle(const QTextDocument* document, QObject* parent)
{
    if (!document)
        return nullptr;
    QTextDocument* copy = cloneContent(document, parent);
    copy->setUndoRedoEnabled(false);
    restoreBlankFirstBlock(document, copy);
    restoreProperties(document, copy);
    return copy;
}

void TextDocSupport::clearDefaultTextOptionFlags(QTextDocument* document)
{
    if (!document)
        return;
    QTextOption option = document->defaultTextOption();
    if (option.flags() == QTextOption::Flags())
        return;
    option.setFlags(QTextOption::Flags());
    document->setDefaultTextOption(option);
}

void TextDocSupport::normalizePageBreaks(QTextDocument* document)
{
    if (!document)
        return;
    QTextCursor edit(document);
    edit.beginEditBlock();
    bool addsBefore = false;
    int plainFormat = -1;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        // Most paragraphs have no page break, and many have the same format.
        const int index = block.blockFormatIndex();
        if (!addsBefore && index == plainFormat)
            continue;
        const int policy = block.blockFormat().intProperty(QTextFormat::PageBreakPolicy);
        const bool movesAfter = (policy & QTextFormat::PageBreak_AlwaysAfter) && block.next().isValid();
        if (addsBefore || movesAfter)
            setPageBreaks(block, addsBefore, movesAfter);
        else if (policy == 0)
            plainFormat = index;
        addsBefore = movesAfter;
    }
    edit.endEditBlock();
}

QImage TextDocSupport::image(const QTextDocument* document, const QString& name)
{
    if (!document || name.isEmpty())
        return QImage();
    const QUrl url(name);
    const QUrl resolved = baseUrl(document).resolved(url);
    QImage image = toImage(resource(document, url, resolved.scheme()));
    if (image.isNull() && resolved.scheme() == QLatin1String("qrc"))
        return QImage(QLatin1Char(':') + resolved.path());
    return image;
}
