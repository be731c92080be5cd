#include "ORVMarkdownWriter.h"

#include "markdown/ORVMarkdownContent_p.h"
#include "markdown/ORVMarkdownNotes_p.h"

#include <QtCore/QIODevice>

class ORVMarkdownWriterPrivate {
public:
    bool write(const QTextDocument* document);

    QIODevice* device = nullptr;
    ORVPictureFiles pictures;
    QStringList pictureFiles;
    QString errorString;
};

bool ORVMarkdownWriterPrivate::write(const QTextDocument* document)
{
    ORVMarkdownOutput output(device);
    ORVNoteQueue notes(ORVNotes::StockForm);
    ORVMarkdownContext context = {};
    context.output = &output;
    context.pictures = &pictures;
    context.notes = &notes;
    ORVMarkdownContent(&context, document, false).write();
    ORVMarkdownNotes::write(&context);
    const bool isWritten = output.finish();
    errorString = isWritten ? pictures.errorString() : device->errorString();
    const bool hasSucceeded = isWritten && errorString.isEmpty();
    pictureFiles = pictures.finish(hasSucceeded);
    return hasSucceeded;
}

ORVMarkdownWriter::ORVMarkdownWriter(QIODevice* device) : d(new ORVMarkdownWriterPrivate)
{
    d->device = device;
}

ORVMarkdownWriter::~ORVMarkdownWriter() = default;

void ORVMarkdownWriter::setPictureFolder(const QString& path, const QString& reference,
                                         const QString& namePrefix)
{
    d->pictures.setFolder(path, reference, namePrefix);
}

bool ORVMarkdownWriter::write(const QTextDocument* document)
{
    return document && d->write(document);
}

QStringList ORVMarkdownWriter::pictureFiles() const
{
    return d->pictureFiles;
}

QString ORVMarkdownWriter::errorString() const
{
    return d->errorString;
}
