// The stripper: RTF of any size, device to device, without pictures, list numbers and unknown words.

#include <ORVTextRtfStripper.h>

#include <QBuffer>
#include <QTextStream>

int main()
{
    QBuffer input;
    input.setData("{\\rtf1{\\*\\pict\\pngblip 89504e47}{\\b bold}\\unknown7 plain}");
    QBuffer output;
    input.open(QIODevice::ReadOnly);
    output.open(QIODevice::WriteOnly);

    ORVTextRtfStripper stripper;
    stripper.setDevice(&input);
    stripper.setOutput(&output);
    stripper.process();
    QTextStream(stdout) << QString::fromLatin1(output.data()) << '\n';
    return 0;
}
