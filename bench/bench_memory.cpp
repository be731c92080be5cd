#include "BenchDocuments.h"

#include "ORVTextRtfReader.h"
#include "ORVTextRtfWriter.h"

#include <QtCore/QFile>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>

#include <cstdio>
#include <cstring>

using namespace BenchDocuments;

/*
    bench_memory build|read|write FILE: one thing in a process of its own, and by how much the most memory it
    has had grew, in KB. "make" and "make-prose" make inputs, a large one and one of usual size.
*/

namespace {

// 50 MB of RTF.
const int paragraphs = 270000;
// 3.7 MB.
const int proseParagraphs = 20000;

/*! The most memory that the process has had so far, in KB; 0 when the system does not tell. */
long long peakMemory()
{
    QFile status(QLatin1String("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

bool make(const QString& fileName, int count)
{
    QFile file(fileName);
    const QByteArray rtf = proseRtf(prose(count));
    return file.open(QIODevice::WriteOnly) && file.write(rtf) == rtf.size();
}

void build(QTextDocument* document)
{
    Prose source;
    ProseBuilder builder(document);
    for (int i = 0; i < paragraphs; ++i)
        builder.add(source.next());
}

bool read(const QString& fileName, QTextDocument* document)
{
    QFile file(fileName);
    ORVTextRtfReader reader(&file);
    return reader.read(document);
}

bool write(const QString& fileName, const QTextDocument* document)
{
    QFile file(fileName + QLatin1String(".out"));
    ORVTextRtfWriter writer(&file);
    return writer.write(document, true);
}

bool run(const char* what, const QString& fileName, long long* before)
{
    QTextDocument document;
    if (std::strcmp(what, "make") == 0)
        return make(fileName, paragraphs);
    if (std::strcmp(what, "make-prose") == 0)
        return make(fileName, proseParagraphs);
    if (std::strcmp(what, "build") == 0) {
        build(&document);
        return true;
    }
    if (!read(fileName, &document))
        return false;
    if (std::strcmp(what, "write") != 0)
        return true;
    *before = peakMemory();
    return write(fileName, &document);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 3)
        return 2;
    long long before = peakMemory();
    if (!run(argv[1], QFile::decodeName(argv[2]), &before))
        return 1;
    std::printf("%lld\n", peakMemory() - before);
    return 0;
}
