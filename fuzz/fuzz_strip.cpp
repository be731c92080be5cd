#include "FuzzChecks.h"
#include "ORVTextRtfStripper.h"

#include <QtCore/QBuffer>

namespace {

QByteArray stripped(const QByteArray& rtf)
{
    QBuffer input;
    input.setData(rtf);
    input.open(QIODevice::ReadOnly);
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();
    return output.data();
}

/*!
    The most that may become of \a rtf. A brace gains a line feed. What begins with a backslash gains a space
    or a line feed; its number, which wraps around into a negative one from ten digits on ("2147483648"
    becomes "-2147483648"), one byte more. All else is copied or dropped. So it is never more than twice the
    input.
*/
int longestOutput(const QByteArray& rtf)
{
    int digits = 0;
    for (char c : rtf)
        digits += c >= '0' && c <= '9' ? 1 : 0;
    return rtf.size() + rtf.count('{') + rtf.count('}') + rtf.count('\\') + digits / 10;
}

/*!
    \a rtf with each run of blanks and line feeds as one blank: the line feeds at braces and behind cells are
    written again by each pass, as is the blank behind a control symbol, which has no delimiter.
*/
QByteArray comparable(const QByteArray& rtf)
{
    QByteArray result;
    for (char c : rtf) {
        const bool isBlank = c == ' ' || c == '\n';
        if (!isBlank)
            result += c;
        else if (!result.endsWith(' '))
            result += ' ';
    }
    return result.trimmed();
}

} // namespace

/*! Strips any input: the size of the output is bounded, and stripping it again changes nothing. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray rtf(reinterpret_cast<const char*>(data), int(size));
    const QByteArray once = stripped(rtf);
    fuzz::require(once.size() <= longestOutput(rtf), "the output grows by its rules only");
    fuzz::require(!once.contains('\r') || rtf.contains("\\'") || rtf.contains("\\bin"),
                  "carriage returns are dropped");
    // Bytes behind "\bin" follow its number without a delimiter, so a second pass may see another number.
    if (rtf.contains("\\bin") || once.contains("\\bin"))
        return 0;
    // A word that the input ends with is no word; the brace makes it one in the second pass as well.
    const QByteArray twice = stripped(once + '}');
    fuzz::require(comparable(twice) == comparable(once + "}\n"), "a second pass finds nothing to strip");
    return 0;
}
