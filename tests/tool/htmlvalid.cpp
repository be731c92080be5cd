#include "testpaths.h"
#include "tooltest.h"

/*! A program that is known for it finds no errors in what the tool writes. */
class TestToolHtmlIsValid : public ToolTest {
    Q_OBJECT

private slots:
    ORV_ROWS(samples)
    {
        const Rows add([this](const QString& input, const QByteArray& style) {
            const ToolRun converted = run(QStringList{"convert"_s, input, path("out.html"), "--html-style"_s,
                                                      QString::fromLatin1(style)});
            QVERIFY2(converted.exitCode == 0 || converted.err.contains(".rtf: "), converted.err.constData());
            QProcess tidy;
            start(tidy, QStringList{"-errors"_s, "-quiet"_s, "-utf8"_s, path("out.html")}, "tidy"_s);
            const ToolRun checked = finish(tidy);
            // It also warns of empty paragraphs and of addresses beyond ASCII, which HTML allows: status 1.
            QVERIFY2(checked.exitCode <= 1, checked.err.constData());
            for (const QByteArray& line : checked.err.split('\n')) {
                QVERIFY2(line.isEmpty() || line.contains("trimming empty")
                             || line.contains("escaping malformed URI"),
                         line.constData());
            }
        });
        const QStringList folders{QString::fromUtf8(TEST_DATA_DIR), QString::fromUtf8(FUZZ_SEEDS_DIR)};
        for (const QString& folder : folders) {
            const QFileInfoList samples = QDir(folder).entryInfoList({"*.rtf"_s}, QDir::Files, QDir::Name);
            for (const QFileInfo& sample : samples) {
                for (const char* style : {"full", "minimal", "none"})
                    add(sample.fileName().toUtf8() + ", " + style, sample.filePath(), style);
            }
        }
    }
};

ORV_TEST_WITH("tidy", "tool_html_valid", TestToolHtmlIsValid, QCoreApplication)

#include "htmlvalid.moc"
