#include "BenchDocuments.h"

#include "ORVTextRtfStripper.h"

#include <QtCore/QBuffer>

#include <benchmark/benchmark.h>

using namespace BenchDocuments;

namespace {

// 100 MB of RTF.
const int paragraphs = 20000;
const int copies = 27;
// Longer than any line of it.
const int longestLine = 4096;

QByteArray manyProseRtf()
{
    return proseRtf(prose(paragraphs)).repeated(copies);
}

void strip(benchmark::State& state)
{
    QByteArray rtf = manyProseRtf();
    for (auto _ : state) {
        QBuffer input(&rtf);
        input.open(QIODevice::ReadOnly);
        QBuffer output;
        output.open(QIODevice::WriteOnly);
        ORVTextRtfStripper stripper;
        stripper.setDevice(&input);
        stripper.setOutput(&output);
        stripper.process();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * rtf.size());
}

void copyLines(benchmark::State& state)
{
    QByteArray rtf = manyProseRtf();
    char line[longestLine];
    for (auto _ : state) {
        QBuffer input(&rtf);
        input.open(QIODevice::ReadOnly);
        QBuffer output;
        output.open(QIODevice::WriteOnly);
        for (qint64 length = input.readLine(line, longestLine); length > 0;
             length = input.readLine(line, longestLine))
            output.write(line, length);
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * rtf.size());
}

BENCHMARK(strip)->Name("strip/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(copyLines)->Name("strip/floor")->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
