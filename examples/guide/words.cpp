// What reading and writing have in common: control words, code page 1252, revision colours.

#include <ORVTextRtfCommon.h>

#include <QColor>
#include <QTextStream>

int main()
{
    QTextStream out(stdout);
    const ORVTextRtfCommon common; // builds the tables
    const char word[] = "\\pard";
    const ORVTextRtfCommon::KeyWord known = ORVTextRtfCommon::fromLatin1(word, sizeof(word) - 1);
    out << ORVTextRtfCommon::KeyWordCount << " control words; " << ORVTextRtfCommon::toLatin1(known)
        << " is one of them\n";

    const QChar euro(ORVTextRtfCommon::unicodeFromAnsi1252("\x80"));
    out << "byte 0x80 is U+" << QString::number(euro.unicode(), 16).toUpper() << ", and back "
        << ORVTextRtfCommon::unicodeToAnsi1252(euro.unicode()) << '\n';
    out << "character set 204 is code page " << ORVTextRtfCommon::charSetToCodePage(204) << '\n';
    out << "revision 1 is " << ORVTextRtfCommon::revisionColor(1).name() << '\n';
    return 0;
}
