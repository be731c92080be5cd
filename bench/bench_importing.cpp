#include "BenchDocuments.h"

#include "ORVTextRtf.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>

#include <benchmark/benchmark.h>

using namespace BenchDocuments;

namespace {

const int proseParagraphs = 20000;
// A megabyte of RTF.
const int novelParagraphs = 1300;
// 3 MB of escaped bytes.
const int escapedBytes = 750000;
const int tableRows = 10000;
const int notes = 5000;
// Ten items each.
const int lists = 500;

typedef bool (*Read)(const QByteArray& rtf, QTextDocument* document, QString* errorMessage);

void readBy(benchmark::State& state, Read read, const QByteArray& rtf)
{
    for (auto _ : state) {
        QTextDocument document;
        if (!read(rtf, &document, nullptr))
            state.SkipWithError("the RTF could not be read");
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * rtf.size());
}

/*! What the document costs without any reading. */
void build(benchmark::State& state, const QByteArray& rtf)
{
    QTextDocument source;
    ORVTextRtf::importRtfData(rtf, &source, nullptr);
    const Copy copy(source);
    for (auto _ : state) {
        QTextDocument document;
        copy.build(&document);
    }
}

/*! Measures reading \a rtf in both forms, as \a name. */
void compareForms(const std::string& name, const QByteArray& rtf)
{
    benchmark::RegisterBenchmark((name + "/ours").c_str(), readBy, ORVTextRtf::importRtfData, rtf)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((name + "/storage").c_str(), readBy, ORVTextRtf::fromRtfData, rtf)
        ->Unit(benchmark::kMillisecond);
}

/*! Measures reading \a rtf, and what its document costs alone. */
void compareWithFloor(const std::string& name, const QByteArray& rtf)
{
    benchmark::RegisterBenchmark((name + "/ours").c_str(), readBy, ORVTextRtf::importRtfData, rtf)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((name + "/floor").c_str(), build, rtf)->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    compareForms("import prose", proseRtf(prose(proseParagraphs)));
    compareForms("import novel", novelRtf(novelParagraphs));
    compareForms("import table", tableRtf(tableRows, false));
    compareForms("import notes", notesRtf(notes));
    compareForms("import lists", listsRtf(lists));
    compareWithFloor("import Cyrillic", cyrillicRtf(escapedBytes));
    compareWithFloor("import Japanese", japaneseRtf(escapedBytes));
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
