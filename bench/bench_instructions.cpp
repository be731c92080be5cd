#include "BenchDocuments.h"

#include "ORVTextRtf.h"
#include "ORVTextRtfStripper.h"

#include <QtCore/QBuffer>
#include <QtGui/QGuiApplication>
#include <QtGui/QTextDocument>

#include <cstring>

using namespace BenchDocuments;

/*
    bench_instructions read|write|strip|table: does one thing once. instructions.py counts the instructions of
    the function below, which takes a few milliseconds.
*/

extern "C" __attribute__((noinline)) bool measuredWork(const char* what, QByteArray* rtf,
                                                       QTextDocument* document)
{
    if (std::strcmp(what, "strip") == 0) {
        QBuffer input(rtf);
        QBuffer output;
        ORVTextRtfStripper stripper;
        stripper.setDevice(&input);
        stripper.setOutput(&output);
        if (!input.open(QIODevice::ReadOnly) || !output.open(QIODevice::WriteOnly))
            return false;
        stripper.process();
        return output.size() > 0;
    }
    if (std::strcmp(what, "write") == 0)
        return !ORVTextRtf::toRtfData(document, true, false).isEmpty();
    return ORVTextRtf::fromRtfData(*rtf, document, nullptr);
}

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    if (argc != 2)
        return 2;
    const bool isTable = std::strcmp(argv[1], "table") == 0;
    QByteArray rtf = isTable ? tableRtf(100, true) : proseRtf(prose(500));
    QTextDocument document;
    // Once before, so that what Qt does only once in a process does not count.
    if (!ORVTextRtf::fromRtfData(rtf, &document, nullptr))
        return 1;
    return measuredWork(argv[1], &rtf, &document) ? 0 : 1;
}
