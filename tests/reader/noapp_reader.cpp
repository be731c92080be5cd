#include "QtFontCompat_p.h"
#include "rtftesthelpers.h"

#include <cstdio>

using namespace rtftest;

namespace {

int failures = 0;

void check(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "failed: %s\n", what);
    ++failures;
}

} // namespace

/*!
    Reads in a program that has no application object at all; the exit code is 0 when all checks pass.

    QtTest always makes such an object, so this is a program of its own.
*/
int main()
{
    check(!QCoreApplication::instance(), "there is no application object");
    const QByteArray picture = "{\\pict\\wmetafile8 " + QByteArray("P5 1 1 255 A").toHex() + "}";
    const Reading reading =
        readBody(fontTable() + colorTable() + "\\pard\\plain\\f1\\fs24\\cf1\\b one\\b0  two\\par" + picture
                 + "\\par\\pard\\ls1 three\\par\\trowd\\cellx1000\\intbl four\\cell\\row\\pard five");
    check(reading.ok && reading.status == 0 && reading.message.isEmpty(), "the document is read");
    check(reading.text() == QStringLiteral("one two\n\uFFFC\nthree\n\nfour\n\nfive"), "the text is there");
    check(reading.images().size() == 1, "the picture is there");
    check(compat::fontFamily(reading.format(QStringLiteral("one"))) == QLatin1String("Quibble Serif"),
          "the font keeps its name");
    check(read("{\\rtf1 a").message == QLatin1String("Unmatched '}' in Rich Text file"),
          "errors have their messages");
    return failures == 0 ? 0 : 1;
}
