#include "BenchDocuments.h"

#include "ORVTextRtf.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QTextBlock>
#include <QtGui/QTextCursor>
#include <QtGui/QTextDocument>
#include <QtGui/QTextList>

#include <benchmark/benchmark.h>

using namespace BenchDocuments;

namespace {

const int proseParagraphs = 20000;
const int listItems = 5000;
// A megabyte of RTF.
const int novelParagraphs = 1300;
// 20 MB of hexadecimal digits.
const int pictureMegabytes = 10;

void read(benchmark::State& state, const QByteArray& rtf)
{
    for (auto _ : state) {
        QTextDocument document;
        if (!ORVTextRtf::fromRtfData(rtf, &document, nullptr))
            state.SkipWithError("the RTF could not be read");
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * rtf.size());
}

void readProse(benchmark::State& state)
{
    read(state, proseRtf(prose(proseParagraphs)));
}

void buildProseDirectly(benchmark::State& state)
{
    const QList<Paragraph> paragraphs = prose(proseParagraphs);
    for (auto _ : state) {
        QTextDocument document;
        ProseBuilder builder(&document);
        for (const Paragraph& paragraph : paragraphs)
            builder.add(paragraph);
    }
}

void setProseHtml(benchmark::State& state)
{
    QTextDocument source;
    ORVTextRtf::fromRtfData(proseRtf(prose(proseParagraphs)), &source, nullptr);
    const QString html = source.toHtml();
    for (auto _ : state) {
        QTextDocument document;
        document.setHtml(html);
    }
}

void readNovel(benchmark::State& state)
{
    read(state, novelRtf(novelParagraphs));
}

void buildNovelDirectly(benchmark::State& state)
{
    QTextDocument source;
    ORVTextRtf::fromRtfData(novelRtf(novelParagraphs), &source, nullptr);
    const Copy copy(source);
    for (auto _ : state) {
        QTextDocument document;
        copy.build(&document);
    }
}

void readPicture(benchmark::State& state)
{
    read(state, pictureRtf(noisePng(pictureMegabytes), "pngblip"));
}

void decodePicture(benchmark::State& state)
{
    const QByteArray hexadecimal = noisePng(pictureMegabytes).toHex();
    for (auto _ : state) {
        const QImage image = QImage::fromData(QByteArray::fromHex(hexadecimal));
        if (image.isNull())
            state.SkipWithError("the picture could not be decoded");
    }
}

void readGroups(benchmark::State& state)
{
    read(state, groupsRtf(int(state.range(0))));
}

void readTable(benchmark::State& state)
{
    const int rows = int(state.range(0));
    read(state, tableRtf(rows, false));
    state.SetItemsProcessed(int64_t(state.iterations()) * rows);
}

void readMergedTable(benchmark::State& state)
{
    const int rows = int(state.range(0));
    read(state, tableRtf(rows, true));
    state.SetItemsProcessed(int64_t(state.iterations()) * rows);
}

void readList(benchmark::State& state)
{
    read(state, listRtf(listItems));
}

/*! The paragraphs of the list are read and then joined to one list, which costs Qt the square of them. */
void addToList(benchmark::State& state)
{
    const QByteArray rtf = plainListRtf(listItems);
    for (auto _ : state) {
        QTextDocument document;
        ORVTextRtf::fromRtfData(rtf, &document, nullptr);
        document.setUndoRedoEnabled(false);
        QTextCursor cursor(&document);
        cursor.beginEditBlock();
        QTextList* const list = cursor.createList(QTextListFormat::ListDecimal);
        for (QTextBlock block = document.begin().next(); block != document.lastBlock(); block = block.next())
            list->add(block);
        cursor.endEditBlock();
    }
}

BENCHMARK(readProse)->Name("read prose/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(buildProseDirectly)->Name("read prose/floor")->Unit(benchmark::kMillisecond);
BENCHMARK(setProseHtml)->Name("read prose/setHtml")->Unit(benchmark::kMillisecond);
BENCHMARK(readNovel)->Name("read novel/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(buildNovelDirectly)->Name("read novel/floor")->Unit(benchmark::kMillisecond);
BENCHMARK(readPicture)->Name("read picture/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(decodePicture)->Name("read picture/floor")->Unit(benchmark::kMillisecond);
BENCHMARK(readGroups)->Name("read groups")->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(readTable)->Name("read table/rows")->Arg(100)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(readMergedTable)
    ->Name("read merged table/rows")
    ->Arg(1000)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(readList)->Name("read list/ours")->Unit(benchmark::kMillisecond);
BENCHMARK(addToList)->Name("read list/floor")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
