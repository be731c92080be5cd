#include "BenchDocuments.h"

#include "ORVHtmlWriter.h"
#include "ORVStockFormats.h"
#include "ORVTextRtf.h"

#include <QtCore/QBuffer>
#include <QtCore/QScopedPointer>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>

#include <benchmark/benchmark.h>

using namespace BenchDocuments;

namespace {

const int proseParagraphs = 20000;
// Makes some 10 MB of JPEG data, 20 MB of hexadecimal digits.
const int pictureSide = 3000;

void readInto(QTextDocument* document, const QByteArray& rtf)
{
    ORVTextRtf::fromRtfData(rtf, document, nullptr);
}

void write(benchmark::State& state, const QByteArray& rtf, bool inPlace)
{
    QTextDocument document;
    readInto(&document, rtf);
    for (auto _ : state) {
        if (ORVTextRtf::toRtfData(&document, inPlace, false).isEmpty())
            state.SkipWithError("the document could not be written");
    }
}

void writeProseInPlace(benchmark::State& state)
{
    write(state, proseRtf(prose(proseParagraphs)), true);
}

void writeProseCopy(benchmark::State& state)
{
    write(state, proseRtf(prose(proseParagraphs)), false);
}

void proseToHtml(benchmark::State& state)
{
    QTextDocument document;
    readInto(&document, proseRtf(prose(proseParagraphs)));
    for (auto _ : state)
        benchmark::DoNotOptimize(document.toHtml());
}

void cloneProseToHtml(benchmark::State& state)
{
    QTextDocument document;
    readInto(&document, proseRtf(prose(proseParagraphs)));
    for (auto _ : state) {
        const QScopedPointer<QTextDocument> clone(document.clone());
        benchmark::DoNotOptimize(clone->toHtml());
    }
}

/*! The prose in the form that HTML is written from. */
void readStockProse(QTextDocument* document)
{
    readInto(document, proseRtf(prose(proseParagraphs)));
    ORVStockFormats::toStock(document);
}

void writeProseAsHtml(benchmark::State& state)
{
    QTextDocument document;
    readStockProse(&document);
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (!ORVHtmlWriter(&buffer).write(&document))
            state.SkipWithError("the document could not be written");
        state.counters["bytes"] = double(buffer.size());
    }
    state.counters["bytes of text"] = double(document.toPlainText().toUtf8().size());
}

void stockProseToHtml(benchmark::State& state)
{
    QTextDocument document;
    readStockProse(&document);
    for (auto _ : state)
        state.counters["bytes"] = double(document.toHtml().toUtf8().size());
}

void writePicture(benchmark::State& state)
{
    write(state, pictureRtf(noiseJpeg(pictureSide), "jpegblip"), true);
}

void writeHexadecimal(benchmark::State& state)
{
    const QByteArray jpeg = noiseJpeg(pictureSide);
    for (auto _ : state) {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        benchmark::DoNotOptimize(buffer.write(jpeg.toHex()));
    }
}

void writeList(benchmark::State& state)
{
    const int items = int(state.range(0));
    write(state, listRtf(items), true);
    state.SetItemsProcessed(int64_t(state.iterations()) * items);
}

void writeTable(benchmark::State& state)
{
    const int rows = int(state.range(0));
    write(state, tableRtf(rows, false), true);
    state.SetItemsProcessed(int64_t(state.iterations()) * rows);
}

BENCHMARK(writeProseInPlace)->Name("write prose in place/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(proseToHtml)->Name("write prose in place/toHtml")->Unit(benchmark::kMillisecond);
BENCHMARK(writeProseCopy)->Name("write prose/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(cloneProseToHtml)->Name("write prose/clone and toHtml")->Unit(benchmark::kMillisecond);
BENCHMARK(writeProseAsHtml)->Name("write prose as HTML/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(stockProseToHtml)->Name("write prose as HTML/toHtml")->Unit(benchmark::kMillisecond);
BENCHMARK(writePicture)->Name("write picture/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(writeHexadecimal)->Name("write picture/floor")->Unit(benchmark::kMillisecond);
BENCHMARK(writeList)->Name("write list/items")->Arg(1000)->Arg(20000)->Unit(benchmark::kMillisecond);
BENCHMARK(writeTable)->Name("write table/rows")->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
