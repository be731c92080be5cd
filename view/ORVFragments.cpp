#include "ORVFragments.h"

#include "ORVTextFormat.h"
#include "TextDocSupport.h"

#include <QtCore/QUrl>
#include <QtCore/QVector>
#include <QtGui/QImage>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextFragment>

namespace {

struct Run {
    int from;
    int to;
    QTextCharFormat format;
};

/*! The runs of text between \a from and \a to, which may begin and end inside of one. */
QVector<Run> runsBetween(const QTextDocument& document, int from, int to)
{
    QVector<Run> runs;
    for (QTextBlock block = document.findBlock(from); block.isValid() && block.position() < to;
         block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            const Run run = {qMax(from, fragment.position()),
                             qMin(to, fragment.position() + fragment.length()), fragment.charFormat()};
            if (run.from < run.to)
                runs.append(run);
        }
    }
    return runs;
}

} // namespace

void ORVFragments::changeFormats(QTextDocument* document, int from, int to,
                                 const std::function<void(QTextCharFormat*)>& change)
{
    if (!document)
        return;
    // All of them first, since changes join and split the fragments.
    const QVector<Run> runs = runsBetween(*document, from, to);
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    for (const Run& run : runs) {
        QTextCharFormat format = run.format;
        change(&format);
        if (format == run.format)
            continue;
        cursor.setPosition(run.from);
        cursor.setPosition(run.to, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
    }
    cursor.endEditBlock();
}

QStringList ORVFragments::pictureNames(const QTextDocument* document)
{
    QStringList names;
    if (!document)
        return names;
    for (QTextBlock block = document->begin(); block.isValid(); block = block.next()) {
        for (QTextBlock::iterator it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat format = it.fragment().charFormat();
            if (format.isImageFormat())
                names.append(ORVTextFormat::imageName(format.toImageFormat()));
        }
    }
    names.removeDuplicates();
    return names;
}

void ORVFragments::copyPictures(const QStringList& names, const QTextDocument* from, QTextDocument* to)
{
    if (!from || !to)
        return;
    for (const QString& name : names) {
        const QImage image = TextDocSupport::image(from, name);
        if (!image.isNull())
            to->addResource(QTextDocument::ImageResource, QUrl(name), image);
    }
}
