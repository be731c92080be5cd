<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>EditorWindow</name>
    <message>
        <source>Rich Text (*.rtf);;All files (*)</source>
        <translation>Rich Text (*.rtf);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>Ö&amp;ffnen…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>Speichern &amp;unter…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>A&amp;lles auswählen</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>F&amp;ormat</source>
        <translation>F&amp;ormat</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>The file cannot be opened.</source>
        <translation>Die Datei lässt sich nicht öffnen.</translation>
    </message>
    <message>
        <source>This file is damaged; what can be read is shown (%1)</source>
        <translation>Diese Datei ist beschädigt; angezeigt wird, was lesbar ist (%1)</translation>
    </message>
    <message>
        <source>The document cannot be saved.</source>
        <translation>Das Dokument lässt sich nicht speichern.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save as</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Save the changes?</source>
        <translation>Änderungen speichern?</translation>
    </message>
    <message>
        <source>Unnamed</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>%1[*]</source>
        <translation>%1[*]</translation>
    </message>
    <message>
        <source>&amp;Export for other programs…</source>
        <translation>Für andere Programme &amp;exportieren …</translation>
    </message>
    <message>
        <source>&amp;Revision level</source>
        <translation>Über&amp;arbeitungsstufe</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Only web and mail addresses are opened: %1</source>
        <translation>Nur Web- und E-Mail-Adressen werden geöffnet: %1</translation>
    </message>
    <message>
        <source>Saved with revision levels, which other programs may not show; for them, export the document</source>
        <translation>Mit Überarbeitungsstufen gespeichert, die andere Programme vielleicht nicht zeigen; für diese das Dokument exportieren</translation>
    </message>
    <message>
        <source>Export for other programs</source>
        <translation>Für andere Programme exportieren</translation>
    </message>
</context>
<context>
    <name>FormatActions</name>
    <message>
        <source>&amp;Bold</source>
        <translation>Fe&amp;tt</translation>
    </message>
    <message>
        <source>&amp;Italic</source>
        <translation>&amp;Kursiv</translation>
    </message>
    <message>
        <source>&amp;Underline</source>
        <translation>&amp;Unterstrichen</translation>
    </message>
    <message>
        <source>&amp;Colour…</source>
        <translation>F&amp;arbe…</translation>
    </message>
    <message>
        <source>Align &amp;left</source>
        <translation>&amp;Linksbündig</translation>
    </message>
    <message>
        <source>C&amp;entre</source>
        <translation>&amp;Zentriert</translation>
    </message>
    <message>
        <source>Align &amp;right</source>
        <translation>&amp;Rechtsbündig</translation>
    </message>
    <message>
        <source>&amp;Justify</source>
        <translation>&amp;Blocksatz</translation>
    </message>
    <message>
        <source>Bullet &amp;list</source>
        <translation>Au&amp;fzählung</translation>
    </message>
    <message>
        <source>&amp;Numbered list</source>
        <translation>&amp;Nummerierte Liste</translation>
    </message>
</context>
<context>
    <name>InsertActions</name>
    <message>
        <source>Pictures (%1)</source>
        <translation>Bilder (%1)</translation>
    </message>
    <message>
        <source>&amp;Table…</source>
        <translation>&amp;Tabelle…</translation>
    </message>
    <message>
        <source>&amp;Picture…</source>
        <translation>&amp;Bild…</translation>
    </message>
    <message>
        <source>Insert picture</source>
        <translation>Bild einfügen</translation>
    </message>
    <message>
        <source>%1 cannot be inserted: %2</source>
        <translation>%1 lässt sich nicht einfügen: %2</translation>
    </message>
</context>
<context>
    <name>LinkActions</name>
    <message>
        <source>&amp;Link…</source>
        <translation>&amp;Link …</translation>
    </message>
    <message>
        <source>&amp;Remove link</source>
        <translation>Link ent&amp;fernen</translation>
    </message>
</context>
<context>
    <name>LinkDialog</name>
    <message>
        <source>Link</source>
        <translation>Link</translation>
    </message>
    <message>
        <source>Te&amp;xt:</source>
        <translation>Te&amp;xt:</translation>
    </message>
    <message>
        <source>&amp;Target:</source>
        <translation>&amp;Ziel:</translation>
    </message>
</context>
<context>
    <name>NoteActions</name>
    <message>
        <source>&amp;Footnote…</source>
        <translation>&amp;Fußnote …</translation>
    </message>
    <message>
        <source>&amp;Comment…</source>
        <translation>&amp;Kommentar …</translation>
    </message>
    <message>
        <source>&amp;Edit note…</source>
        <translation>Anmerkung &amp;bearbeiten …</translation>
    </message>
    <message>
        <source>&amp;Delete note</source>
        <translation>Anmerkung &amp;löschen</translation>
    </message>
    <message>
        <source>Edit comment</source>
        <translation>Kommentar bearbeiten</translation>
    </message>
    <message>
        <source>Edit footnote</source>
        <translation>Fußnote bearbeiten</translation>
    </message>
    <message>
        <source>Insert footnote</source>
        <translation>Fußnote einfügen</translation>
    </message>
    <message>
        <source>Insert comment</source>
        <translation>Kommentar einfügen</translation>
    </message>
    <message>
        <source>Edit endnote</source>
        <translation>Endnote bearbeiten</translation>
    </message>
</context>
<context>
    <name>NotesPanel</name>
    <message>
        <source>Notes</source>
        <translation>Anmerkungen</translation>
    </message>
    <message>
        <source>Footnote</source>
        <translation>Fußnote</translation>
    </message>
    <message>
        <source>Endnote</source>
        <translation>Endnote</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <comment>title and text of a note</comment>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>ORVTextRtf</name>
    <message>
        <source>Failed loading RTF file &apos;%1&apos;</source>
        <translation>Die RTF-Datei „%1“ ließ sich nicht laden</translation>
    </message>
    <message>
        <source>Unmatched &apos;{&apos; in Rich Text file</source>
        <translation>„{“ ohne Gegenstück in der RTF-Datei</translation>
    </message>
    <message>
        <source>Unmatched &apos;}&apos; in Rich Text file</source>
        <translation>„}“ ohne Gegenstück in der RTF-Datei</translation>
    </message>
    <message>
        <source>Invalid character found in #SDATA</source>
        <translation>Ungültiges Zeichen in #SDATA</translation>
    </message>
    <message>
        <source>Invalid table encountered in Rich Text file</source>
        <translation>Ungültige Tabelle in der RTF-Datei</translation>
    </message>
    <message>
        <source>Assertion Error</source>
        <translation>Interner Fehler</translation>
    </message>
    <message>
        <source>Unexpected end of file</source>
        <translation>Unerwartetes Ende der Datei</translation>
    </message>
    <message>
        <source>Invalid control word encountered</source>
        <translation>Ungültiges Steuerwort</translation>
    </message>
    <message>
        <source>Invalid control word parameter encountered</source>
        <translation>Ungültiger Parameter eines Steuerworts</translation>
    </message>
    <message>
        <source>Could not open device</source>
        <translation>Das Gerät ließ sich nicht öffnen</translation>
    </message>
</context>
<context>
    <name>PageActions</name>
    <message>
        <source>Pa&amp;ge set-up…</source>
        <translation>&amp;Seite einrichten …</translation>
    </message>
    <message>
        <source>Print pre&amp;view…</source>
        <translation>Druck&amp;vorschau …</translation>
    </message>
    <message>
        <source>Export as P&amp;DF…</source>
        <translation>Als P&amp;DF exportieren …</translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation>Als PDF exportieren</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>%1 cannot be written: %2</source>
        <translation>%1 kann nicht geschrieben werden: %2</translation>
    </message>
</context>
<context>
    <name>PageDialog</name>
    <message>
        <source>&amp;None on the first page</source>
        <translation>&amp;Nicht auf der ersten Seite</translation>
    </message>
    <message>
        <source>The first page &amp;counts</source>
        <translation>Die erste Seite &amp;zählt mit</translation>
    </message>
    <message>
        <source>Page set-up</source>
        <translation>Seite einrichten</translation>
    </message>
    <message>
        <source>Other</source>
        <translation>Andere</translation>
    </message>
    <message>
        <source> mm</source>
        <translation> mm</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Centre</source>
        <translation>Zentriert</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>&amp;Paper:</source>
        <translation>&amp;Papier:</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Breite:</translation>
    </message>
    <message>
        <source>&amp;Height:</source>
        <translation>&amp;Höhe:</translation>
    </message>
    <message>
        <source>&amp;Left margin:</source>
        <translation>&amp;Linker Rand:</translation>
    </message>
    <message>
        <source>&amp;Right margin:</source>
        <translation>&amp;Rechter Rand:</translation>
    </message>
    <message>
        <source>&amp;Top margin:</source>
        <translation>&amp;Oberer Rand:</translation>
    </message>
    <message>
        <source>&amp;Bottom margin:</source>
        <translation>&amp;Unterer Rand:</translation>
    </message>
    <message>
        <source>H&amp;eader:</source>
        <translation>&amp;Kopfzeile:</translation>
    </message>
    <message>
        <source>&amp;Footer:</source>
        <translation>&amp;Fußzeile:</translation>
    </message>
    <message>
        <source>&lt;$p&gt; is the page number, &lt;$pagecount&gt; the number of pages.</source>
        <translation>&lt;$p&gt; ist die Seitenzahl, &lt;$pagecount&gt; die Anzahl der Seiten.</translation>
    </message>
</context>
<context>
    <name>PdfFile</name>
    <message>
        <source>the file cannot be made</source>
        <translation>die Datei lässt sich nicht herstellen</translation>
    </message>
</context>
<context>
    <name>PreviewWindow</name>
    <message>
        <source>Print preview</source>
        <translation>Druckvorschau</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Zoom</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Schließen</translation>
    </message>
    <message>
        <source>Pages: %1</source>
        <translation>Seiten: %1</translation>
    </message>
</context>
<context>
    <name>QCommandLineParser</name>
    <message>
        <source>Usage: %1</source>
        <translation>Aufruf: %1</translation>
    </message>
    <message>
        <source>[options]</source>
        <translation>[Optionen]</translation>
    </message>
    <message>
        <source>Options:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>Arguments:</source>
        <translation>Argumente:</translation>
    </message>
    <message>
        <source>Unknown option &apos;%1&apos;.</source>
        <translation>Unbekannte Option „%1“.</translation>
    </message>
    <message>
        <source>Unknown options: %1.</source>
        <translation>Unbekannte Optionen: %1.</translation>
    </message>
    <message>
        <source>Missing value after &apos;%1&apos;.</source>
        <translation>Nach „%1“ fehlt ein Wert.</translation>
    </message>
    <message>
        <source>Unexpected value after &apos;%1&apos;.</source>
        <translation>Unerwarteter Wert nach „%1“.</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Could not write RTF contents to file: &apos;%1&apos;</source>
        <translation>Der RTF-Inhalt ließ sich nicht in die Datei schreiben: „%1“</translation>
    </message>
    <message>
        <source>RTF writer failed generating contents for file: &apos;%1&apos;</source>
        <translation>Der RTF-Inhalt ließ sich nicht erzeugen für die Datei: „%1“</translation>
    </message>
    <message>
        <source>Could not open RTF file for writing.
File: &apos;%1&apos;
Error: &apos;%2&apos;</source>
        <translation>Die RTF-Datei ließ sich nicht zum Schreiben öffnen.
Datei: „%1“
Fehler: „%2“</translation>
    </message>
    <message>
        <source>Could not flush RTF contents of file: &apos;%1&apos;
Error: &apos;%2&apos;</source>
        <translation>Der RTF-Inhalt der Datei ließ sich nicht vollständig schreiben: „%1“
Fehler: „%2“</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Discard</source>
        <translation>Verwerfen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>RevisionActions</name>
    <message>
        <source>&amp;None</source>
        <translation>&amp;Keine</translation>
    </message>
    <message>
        <source>Revision &amp;%1</source>
        <translation>Überarbeitung &amp;%1</translation>
    </message>
</context>
<context>
    <name>TableDialog</name>
    <message>
        <source>Insert table</source>
        <translation>Tabelle einfügen</translation>
    </message>
    <message>
        <source>&amp;Rows:</source>
        <translation>&amp;Zeilen:</translation>
    </message>
    <message>
        <source>&amp;Columns:</source>
        <translation>&amp;Spalten:</translation>
    </message>
</context>
<context>
    <name>TextDocSupport</name>
    <message>
        <source>Failed loading converted RTF file &apos;%1&apos;
Error: %2</source>
        <translation>Die konvertierte RTF-Datei „%1“ ließ sich nicht laden
Fehler: %2</translation>
    </message>
    <message>
        <source>Failed loading %1 file &apos;%2&apos;
Error: %3</source>
        <translation>Die %1-Datei „%2“ ließ sich nicht laden
Fehler: %3</translation>
    </message>
</context>
<context>
    <name>TextTips</name>
    <message>
        <source>Ctrl+click opens the link</source>
        <translation>Strg+Klick öffnet den Link</translation>
    </message>
</context>
<context>
    <name>TextTransform</name>
    <message>
        <source>Cannot convert &apos;.%1&apos; files to this format: %2</source>
        <translation>„.%1“-Dateien lassen sich nicht in dieses Format konvertieren: %2</translation>
    </message>
    <message>
        <source>Looked for: %1</source>
        <translation>Gesucht wurde: %1</translation>
    </message>
    <message>
        <source>Could not read &apos;%1&apos;: %2</source>
        <translation>„%1“ ließ sich nicht lesen: %2</translation>
    </message>
    <message>
        <source>Could not write &apos;%1&apos;: %2</source>
        <translation>„%1“ ließ sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>%1 could not be started</source>
        <translation>%1 ließ sich nicht starten</translation>
    </message>
    <message>
        <source>%1 crashed</source>
        <translation>%1 ist abgestürzt</translation>
    </message>
    <message>
        <source>%1 ended with exit status %2</source>
        <translation>%1 endete mit Exit-Status %2</translation>
    </message>
    <message>
        <source>%1 did not end within %2 seconds</source>
        <translation>%1 wurde nicht innerhalb von %2 Sekunden fertig</translation>
    </message>
    <message>
        <source>%1 wrote nothing</source>
        <translation>%1 hat nichts geschrieben</translation>
    </message>
    <message>
        <source>not a file</source>
        <translation>keine Datei</translation>
    </message>
    <message>
        <source>There is no folder for temporary files</source>
        <translation>Es gibt keinen Ordner für temporäre Dateien</translation>
    </message>
    <message>
        <source>No program for this conversion is known</source>
        <translation>Für diese Konvertierung ist kein Programm bekannt</translation>
    </message>
    <message>
        <source>The file could not be read</source>
        <translation>Die Datei ließ sich nicht lesen</translation>
    </message>
    <message>
        <source>No program for this conversion is installed</source>
        <translation>Für diese Konvertierung ist kein Programm installiert</translation>
    </message>
    <message>
        <source>The conversion program failed</source>
        <translation>Das Konvertierungsprogramm ist gescheitert</translation>
    </message>
    <message>
        <source>The conversion program took too long</source>
        <translation>Das Konvertierungsprogramm brauchte zu lange</translation>
    </message>
    <message>
        <source>The converted file was not written</source>
        <translation>Die konvertierte Datei wurde nicht geschrieben</translation>
    </message>
</context>
<context>
    <name>main</name>
    <message>
        <source>RTF editor</source>
        <translation>RTF-Editor</translation>
    </message>
</context>
<context>
    <name>orvrtf</name>
    <message>
        <source>standard input</source>
        <translation>Standardeingabe</translation>
    </message>
    <message>
        <source>cannot read %1: %2</source>
        <translation>%1 lässt sich nicht lesen: %2</translation>
    </message>
    <message>
        <source>cannot write %1: %2</source>
        <translation>%1 lässt sich nicht schreiben: %2</translation>
    </message>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>status</source>
        <translation>Status</translation>
    </message>
    <message>
        <source>paragraphs</source>
        <translation>Absätze</translation>
    </message>
    <message>
        <source>words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>characters</source>
        <translation>Zeichen</translation>
    </message>
    <message>
        <source>fonts</source>
        <translation>Schriften</translation>
    </message>
    <message>
        <source>pictures</source>
        <translation>Bilder</translation>
    </message>
    <message>
        <source>links</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>notes</source>
        <translation>Anmerkungen</translation>
    </message>
    <message>
        <source>tables</source>
        <translation>Tabellen</translation>
    </message>
    <message>
        <source>lists</source>
        <translation>Listen</translation>
    </message>
    <message>
        <source>cannot write standard output: %1</source>
        <translation>Die Standardausgabe lässt sich nicht schreiben: %1</translation>
    </message>
    <message>
        <source>%1; see orvrtf --help</source>
        <translation>%1; siehe orvrtf --help</translation>
    </message>
    <message>
        <source>Show this help.</source>
        <translation>Diese Hilfe zeigen.</translation>
    </message>
    <message>
        <source>Show the version.</source>
        <translation>Die Version zeigen.</translation>
    </message>
    <message>
        <source>Format of IN for convert, of A and B for diff: rtf, html or txt.</source>
        <translation>Format von IN für convert, von A und B für diff: rtf, html oder txt.</translation>
    </message>
    <message>
        <source>format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Program that reads .doc, .docx and .odt: auto, libreoffice, abiword or pandoc. If libreoffice, it writes .odt too.</source>
        <translation>Programm, das .doc, .docx und .odt liest: auto, libreoffice, abiword oder pandoc. Bei libreoffice schreibt es auch .odt.</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Read and write RTF in the application&apos;s own form.</source>
        <translation>RTF in der eigenen Form der Anwendung lesen und schreiben.</translation>
    </message>
    <message>
        <source>Write text backgrounds as MS Word takes them in any colour.</source>
        <translation>Texthintergründe so schreiben, wie MS Word sie in jeder Farbe annimmt.</translation>
    </message>
    <message>
        <source>Write links blue and underlined.</source>
        <translation>Links blau und unterstrichen schreiben.</translation>
    </message>
    <message>
        <source>Write footnotes as annotation, footnote or alternate.</source>
        <translation>Fußnoten als annotation (Kommentar), footnote (Fußnote) oder alternate (andere Form der Fußnote) schreiben.</translation>
    </message>
    <message>
        <source>style</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Write annotations as annotation, footnote or alternate.</source>
        <translation>Kommentare als annotation (Kommentar), footnote (Fußnote) oder alternate (andere Form der Fußnote) schreiben.</translation>
    </message>
    <message>
        <source>Let info print JSON.</source>
        <translation>info gibt JSON aus.</translation>
    </message>
    <message>
        <source>convert, info, check, strip or diff.</source>
        <translation>convert, info, check, strip oder diff.</translation>
    </message>
    <message>
        <source>File to read.</source>
        <translation>Datei, die gelesen wird.</translation>
    </message>
    <message>
        <source>File that convert, strip and diff write.</source>
        <translation>Datei, die convert, strip und diff schreiben.</translation>
    </message>
    <message>
        <source>unknown input format &quot;%1&quot;, known are rtf, html and txt</source>
        <translation>Unbekanntes Eingabeformat „%1“, bekannt sind rtf, html und txt</translation>
    </message>
    <message>
        <source>--engine goes with .doc, .docx and .odt only</source>
        <translation>--engine gilt nur bei .doc, .docx und .odt</translation>
    </message>
    <message>
        <source>unknown engine &quot;%1&quot;, known are auto, libreoffice, abiword and pandoc</source>
        <translation>Unbekanntes Programm „%1“, bekannt sind auto, libreoffice, abiword und pandoc</translation>
    </message>
    <message>
        <source>--%1 goes with %2 output only</source>
        <translation>--%1 gilt nur bei Ausgabe von %2</translation>
    </message>
    <message>
        <source>--storage goes with RTF only</source>
        <translation>--storage gilt nur bei RTF</translation>
    </message>
    <message>
        <source>unknown style &quot;%1&quot;, known are annotation, footnote and alternate</source>
        <translation>Unbekannte Art „%1“, bekannt sind annotation, footnote und alternate</translation>
    </message>
    <message>
        <source>%1 takes an input and an output file</source>
        <translation>%1 braucht eine Eingabe- und eine Ausgabedatei</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is both input and output</source>
        <translation>„%1“ ist Eingabe und Ausgabe zugleich</translation>
    </message>
    <message>
        <source>%1 takes one input file</source>
        <translation>%1 braucht eine Eingabedatei</translation>
    </message>
    <message>
        <source>no command given</source>
        <translation>Es ist kein Befehl angegeben</translation>
    </message>
    <message>
        <source>unknown command &quot;%1&quot;</source>
        <translation>Unbekannter Befehl „%1“</translation>
    </message>
    <message>
        <source>--%1 does not go with %2</source>
        <translation>--%1 gilt nicht bei %2</translation>
    </message>
    <message>
        <source>reading stopped before the end</source>
        <translation>Das Lesen brach vor dem Ende ab</translation>
    </message>
    <message>
        <source>LibreOffice is not installed</source>
        <translation>LibreOffice ist nicht installiert</translation>
    </message>
    <message>
        <source>no temporary file: %1</source>
        <translation>Keine temporäre Datei: %1</translation>
    </message>
    <message>
        <source>%1 converted with errors</source>
        <translation>%1 mit Fehlern konvertiert</translation>
    </message>
    <message>
        <source>%1 failed</source>
        <translation>%1 gescheitert</translation>
    </message>
    <message>
        <source>%1 interrupted</source>
        <translation>%1 unterbrochen</translation>
    </message>
    <message>
        <source>%1 not tried</source>
        <translation>%1 nicht versucht</translation>
    </message>
    <message>
        <source>%1 converted</source>
        <translation>%1 konvertiert</translation>
    </message>
    <message>
        <source>cannot make the directory %1</source>
        <translation>das Verzeichnis %1 lässt sich nicht anlegen</translation>
    </message>
    <message>
        <source>Convert many files, into this directory.</source>
        <translation>Viele Dateien konvertieren, in dieses Verzeichnis.</translation>
    </message>
    <message>
        <source>directory</source>
        <translation>Verzeichnis</translation>
    </message>
    <message>
        <source>Number of files to convert at the same time: 1 by default; 0 or auto is one for each processor.</source>
        <translation>Anzahl der Dateien, die gleichzeitig konvertiert werden: 1, wenn nichts angegeben ist; 0 oder auto: eine für jeden Prozessor.</translation>
    </message>
    <message>
        <source>number</source>
        <translation>Zahl</translation>
    </message>
    <message>
        <source>Convert the other files when one fails; by default no new conversion is started then.</source>
        <translation>Die anderen Dateien konvertieren, wenn eine scheitert; sonst beginnt dann keine neue Konvertierung.</translation>
    </message>
    <message>
        <source>Time limit for each of many files, in seconds: 600 by default; 0 is no limit.</source>
        <translation>Zeitgrenze für jede von vielen Dateien in Sekunden: 600, wenn nichts angegeben ist; 0: keine.</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>--output-dir takes a directory</source>
        <translation>--output-dir verlangt ein Verzeichnis</translation>
    </message>
    <message>
        <source>--jobs takes a number or auto, not &quot;%1&quot;</source>
        <translation>--jobs verlangt eine Zahl oder auto, nicht „%1“</translation>
    </message>
    <message>
        <source>--timeout takes a number of seconds, not &quot;%1&quot;</source>
        <translation>--timeout verlangt eine Zahl von Sekunden, nicht „%1“</translation>
    </message>
    <message>
        <source>&quot;%1&quot; and &quot;%2&quot; would both become &quot;%3&quot;</source>
        <translation>„%1“ und „%2“ würden beide zu „%3“</translation>
    </message>
    <message>
        <source>Format of OUT: rtf, html, txt, md, odt, pdf or png; for diff html or txt.</source>
        <translation>Format von OUT: rtf, html, txt, md, odt, pdf oder png; bei diff html oder txt.</translation>
    </message>
    <message>
        <source>unknown output format &quot;%1&quot;, known are rtf, html, txt, md, odt, pdf and png</source>
        <translation>unbekanntes Ausgabeformat „%1“, bekannt sind rtf, html, txt, md, odt, pdf und png</translation>
    </message>
    <message>
        <source>the standard output needs --to rtf, html, txt, md, odt or pdf</source>
        <translation>die Standardausgabe verlangt --to rtf, html, txt, md, odt oder pdf</translation>
    </message>
    <message>
        <source>cannot tell the format of &quot;%1&quot; by its suffix, known are .rtf, .html, .htm, .txt, .md, .odt, .pdf and .png</source>
        <translation>an der Endung von „%1“ ist das Format nicht zu erkennen, bekannt sind .rtf, .html, .htm, .txt, .md, .odt, .pdf und .png</translation>
    </message>
    <message>
        <source>png is a file for each page and cannot go to the standard output</source>
        <translation>png ist eine Datei für jede Seite und kann nicht auf die Standardausgabe</translation>
    </message>
    <message>
        <source>convert --output-dir takes input files</source>
        <translation>convert --output-dir verlangt Eingabedateien</translation>
    </message>
    <message>
        <source>the standard input does not go with --output-dir</source>
        <translation>die Standardeingabe passt nicht zu --output-dir</translation>
    </message>
    <message>
        <source>--output-dir needs --to</source>
        <translation>--output-dir verlangt --to</translation>
    </message>
    <message>
        <source>--%1 goes with --output-dir only</source>
        <translation>--%1 passt nur zu --output-dir</translation>
    </message>
    <message>
        <source>the picture cannot be made</source>
        <translation>das Bild lässt sich nicht herstellen</translation>
    </message>
    <message>
        <source>the file cannot be made</source>
        <translation>die Datei lässt sich nicht herstellen</translation>
    </message>
    <message>
        <source>it is the input</source>
        <translation>das ist die Eingabe</translation>
    </message>
    <message>
        <source>not done within %1 seconds</source>
        <translation>nicht fertig innerhalb von %1 Sekunden</translation>
    </message>
    <message>
        <source>the conversion crashed</source>
        <translation>die Konvertierung ist abgestürzt</translation>
    </message>
    <message>
        <source>exit status %1</source>
        <translation>Exit-Status %1</translation>
    </message>
    <message>
        <source>cannot convert %1: %2</source>
        <translation>%1 lässt sich nicht konvertieren: %2</translation>
    </message>
    <message>
        <source>author</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>last author</source>
        <translation>Bearbeiter</translation>
    </message>
    <message>
        <source>subject</source>
        <translation>Thema</translation>
    </message>
    <message>
        <source>keywords</source>
        <translation>Stichwörter</translation>
    </message>
    <message>
        <source>comment</source>
        <translation>Kommentar</translation>
    </message>
    <message>
        <source>manager</source>
        <translation>Leitung</translation>
    </message>
    <message>
        <source>company</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>category</source>
        <translation>Kategorie</translation>
    </message>
    <message>
        <source>created</source>
        <translation>erstellt</translation>
    </message>
    <message>
        <source>modified</source>
        <translation>geändert</translation>
    </message>
    <message>
        <source>printed</source>
        <translation>gedruckt</translation>
    </message>
    <message>
        <source>header</source>
        <translation>Kopfzeile</translation>
    </message>
    <message>
        <source>footer</source>
        <translation>Fußzeile</translation>
    </message>
    <message>
        <source>title</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>%1 footnotes, %2 endnotes, %3 annotations</source>
        <translation>%1 Fußnoten, %2 Endnoten, %3 Kommentare</translation>
    </message>
    <message>
        <source>Converts and examines Rich Text Format files.

Commands:
  convert IN OUT  Convert between RTF, HTML and plain text, and to Markdown, ODT,
                  PDF and PNG. The suffixes (.rtf, .html, .htm, .txt; .md, .odt,
                  .pdf, .png) determine the formats, unless --from and --to are
                  given. IN can also be .doc, .docx or .odt if LibreOffice, AbiWord
                  or pandoc is installed. Any other IN is read as RTF.
  convert IN... --output-dir DIR --to FORMAT
                  Convert each IN to a file in DIR of the same name, with the suffix
                  of the format. DIR is created if it is missing.
  info IN         Print title, author, dates, header and footer of IN, and count what it
                  contains: paragraphs, words, characters, fonts, pictures, links,
                  notes, tables and lists.
  check IN        Report whether IN is damaged.
  strip IN OUT    Copy RTF without pictures, list numbers and unknown control words.
  diff A B [OUT]  Compare the text and the formats of A and B, which can be all that
                  convert reads. The report is text or HTML (--to, or the suffix of OUT),
                  by default text on the standard output.

IN and OUT can be &quot;-&quot; for the standard input and output. Put file names with a leading
dash after &quot;--&quot;. HTML is UTF-8 and embeds its pictures, or with --media refers to files.
Plain text is UTF-8 too: a line for each paragraph, table cell and line break, with the
numbers of list items; it keeps no-break spaces and has no pictures. Markdown is CommonMark
with tables and footnotes, and its pictures are files in a folder beside OUT. Notes stand
at the end, in plain text behind marks such as [1], [i] for an endnote and [c1] for a
comment. RTF is that of other programs, or with --storage the application&apos;s own form.
PDF and PNG have the pages that the RTF defines, by default US Letter, and A4 for
other IN. PNG is one picture a page: OUT.png, OUT-2.png and so on.

Damaged RTF is converted as far as it can be read. Then one line on the standard error
reports the first error, and the exit status is 1.

Exit status: 0 success; 1 IN is damaged, or reading or writing failed; 2 the command
line is wrong. That of diff: 0 no difference; 1 differences; 2 an error. A failed
conversion leaves no partial output file.</source>
        <translation>Konvertiert und untersucht Dateien im Rich Text Format.

Befehle:
  convert IN OUT  Zwischen RTF, HTML und reinem Text konvertieren, und nach Markdown,
                  ODT, PDF und PNG. Die Endungen (.rtf, .html, .htm, .txt; .md, .odt,
                  .pdf, .png) bestimmen die Formate, wenn --from und --to nicht
                  angegeben sind. IN kann auch .doc, .docx oder .odt sein, wenn
                  LibreOffice, AbiWord oder pandoc installiert ist. Jedes andere IN wird
                  als RTF gelesen.
  convert IN... --output-dir DIR --to FORMAT
                  Jedes IN in eine Datei desselben Namens mit der Endung des Formats
                  konvertieren, in DIR, das angelegt wird, wenn es fehlt.
  info IN         Titel, Autor, Daten, Kopf- und Fußzeile von IN ausgeben und zählen, was
                  es enthält: Absätze, Wörter, Zeichen, Schriften, Bilder, Links,
                  Anmerkungen, Tabellen und Listen.
  check IN        Melden, ob IN beschädigt ist.
  strip IN OUT    RTF ohne Bilder, Listennummern und unbekannte Steuerwörter kopieren.
  diff A B [OUT]  Text und Formate von A und B vergleichen, die alles sein können, was
                  convert liest. Der Bericht ist Text oder HTML (--to oder die Endung von
                  OUT), sonst Text auf der Standardausgabe.

IN und OUT können „-“ sein: Standardeingabe und Standardausgabe. Namen, die mit einem
Strich beginnen, stehen hinter „--“. HTML ist UTF-8 und enthält seine Bilder
oder verweist mit --media auf Dateien. Auch reiner Text ist UTF-8: eine Zeile für jeden
Absatz, jede Tabellenzelle und jeden Zeilenumbruch, mit den Nummern der Listen;
geschützte Leerzeichen bleiben, Bilder fallen weg. Markdown ist CommonMark mit Tabellen
und Fußnoten, seine Bilder sind Dateien in einem Ordner neben OUT. Anmerkungen stehen am Ende, in reinem Text hinter Zeichen wie [1], [i]
für eine Endnote und [c1] für einen Kommentar. RTF ist das anderer Programme, mit
--storage die eigene Form der Anwendung. PDF
und PNG haben die Seiten, die das RTF angibt, US Letter, wenn es keine angibt, und A4
bei anderem IN; PNG ist ein Bild für jede Seite: OUT.png, OUT-2.png und so weiter.

Beschädigtes RTF wird konvertiert, soweit es lesbar ist. Eine Zeile auf der
Standardfehlerausgabe meldet dann den ersten Fehler, und der Exit-Status ist 1.

Exit-Status: 0 Erfolg; 1 IN ist beschädigt, oder Lesen oder Schreiben ist
gescheitert; 2 die Befehlszeile stimmt nicht. Bei diff: 0 kein Unterschied;
1 Unterschiede; 2 ein Fehler. Eine gescheiterte Konvertierung hinterlässt keine
unvollständige Ausgabedatei.</translation>
    </message>
    <message>
        <source>HTML and Markdown</source>
        <translation>HTML und Markdown</translation>
    </message>
    <message>
        <source>plain text</source>
        <translation>reinem Text</translation>
    </message>
    <message>
        <source>unknown style &quot;%1&quot;, known are full, minimal and none</source>
        <translation>Unbekannte Art „%1“, bekannt sind full, minimal und none</translation>
    </message>
    <message>
        <source>--media takes a directory</source>
        <translation>--media braucht ein Verzeichnis</translation>
    </message>
    <message>
        <source>--width takes a number from %1 to %2, not &quot;%3&quot;</source>
        <translation>--width braucht eine Zahl von %1 bis %2, nicht „%3“</translation>
    </message>
    <message>
        <source>How much of the formats HTML has: full, minimal or none.</source>
        <translation>Wie viel von den Formaten HTML hat: full (alle), minimal (wenige) oder none (keine).</translation>
    </message>
    <message>
        <source>Write the pictures of HTML or Markdown as files to this directory.</source>
        <translation>Die Bilder von HTML oder Markdown als Dateien in dieses Verzeichnis schreiben.</translation>
    </message>
    <message>
        <source>Write the cells of tables side by side in plain text.</source>
        <translation>In reinem Text die Zellen von Tabellen nebeneinander schreiben.</translation>
    </message>
    <message>
        <source>Wrap lines of plain text at this number of columns.</source>
        <translation>Zeilen von reinem Text bei dieser Zahl von Spalten umbrechen.</translation>
    </message>
    <message>
        <source>engine &quot;%1&quot; does not write .odt, only libreoffice does</source>
        <translation>Das Programm „%1“ schreibt kein .odt, nur libreoffice</translation>
    </message>
    <message>
        <source>unknown report format &quot;%1&quot;, known are html and txt</source>
        <translation>Unbekanntes Format des Berichts „%1“, bekannt sind html und txt</translation>
    </message>
    <message>
        <source>cannot tell the format of &quot;%1&quot; by its suffix, known are .html, .htm and .txt</source>
        <translation>Das Format von „%1“ ist an der Endung nicht zu erkennen, bekannt sind .html, .htm und .txt</translation>
    </message>
    <message>
        <source>diff takes two input files, and an output file if wanted</source>
        <translation>diff braucht zwei Eingabedateien und auf Wunsch eine Ausgabedatei</translation>
    </message>
    <message>
        <source>the standard input cannot be both files of diff</source>
        <translation>Die Standardeingabe kann nicht beide Dateien von diff sein</translation>
    </message>
    <message>
        <source>en</source>
        <comment>language of the report</comment>
        <translation>de</translation>
    </message>
    <message>
        <source>bold</source>
        <translation>fett</translation>
    </message>
    <message>
        <source>italic</source>
        <translation>kursiv</translation>
    </message>
    <message>
        <source>&quot;%1&quot;</source>
        <translation>„%1“</translation>
    </message>
    <message>
        <source>font</source>
        <translation>Schrift</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>underline</source>
        <translation>Unterstreichung</translation>
    </message>
    <message>
        <source>overline</source>
        <translation>Überstreichung</translation>
    </message>
    <message>
        <source>strike-out</source>
        <translation>durchgestrichen</translation>
    </message>
    <message>
        <source>capitals</source>
        <translation>Großbuchstaben</translation>
    </message>
    <message>
        <source>outline</source>
        <translation>Kontur</translation>
    </message>
    <message>
        <source>text colour</source>
        <translation>Textfarbe</translation>
    </message>
    <message>
        <source>text background</source>
        <translation>Texthintergrund</translation>
    </message>
    <message>
        <source>position</source>
        <translation>Stellung</translation>
    </message>
    <message>
        <source>letter spacing</source>
        <translation>Zeichenabstand</translation>
    </message>
    <message>
        <source>stretch</source>
        <translation>Dehnung</translation>
    </message>
    <message>
        <source>no kerning</source>
        <translation>keine Unterschneidung</translation>
    </message>
    <message>
        <source>language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>link</source>
        <translation>Verweis</translation>
    </message>
    <message>
        <source>bookmark</source>
        <translation>Textmarke</translation>
    </message>
    <message>
        <source>page number of</source>
        <translation>Seitenzahl von</translation>
    </message>
    <message>
        <source>revision level</source>
        <translation>Überarbeitungsstufe</translation>
    </message>
    <message>
        <source>alignment</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>right-to-left</source>
        <translation>von rechts nach links</translation>
    </message>
    <message>
        <source>heading level</source>
        <translation>Überschriftenebene</translation>
    </message>
    <message>
        <source>left indent</source>
        <translation>Einzug links</translation>
    </message>
    <message>
        <source>right indent</source>
        <translation>Einzug rechts</translation>
    </message>
    <message>
        <source>first-line indent</source>
        <translation>Einzug der ersten Zeile</translation>
    </message>
    <message>
        <source>label position</source>
        <translation>Stelle des Listenzeichens</translation>
    </message>
    <message>
        <source>space above</source>
        <translation>Abstand oben</translation>
    </message>
    <message>
        <source>space below</source>
        <translation>Abstand unten</translation>
    </message>
    <message>
        <source>line height</source>
        <translation>Zeilenhöhe</translation>
    </message>
    <message>
        <source>tab stops</source>
        <translation>Tabulatoren</translation>
    </message>
    <message>
        <source>background</source>
        <translation>Hintergrund</translation>
    </message>
    <message>
        <source>border above</source>
        <translation>Linie oben</translation>
    </message>
    <message>
        <source>border below</source>
        <translation>Linie unten</translation>
    </message>
    <message>
        <source>border on the left</source>
        <translation>Linie links</translation>
    </message>
    <message>
        <source>border on the right</source>
        <translation>Linie rechts</translation>
    </message>
    <message>
        <source>ruler</source>
        <translation>Trennlinie</translation>
    </message>
    <message>
        <source>page break before</source>
        <translation>Seitenumbruch davor</translation>
    </message>
    <message>
        <source>page break after</source>
        <translation>Seitenumbruch danach</translation>
    </message>
    <message>
        <source>keep with next</source>
        <translation>beim nächsten Absatz halten</translation>
    </message>
    <message>
        <source>keep lines together</source>
        <translation>Zeilen zusammenhalten</translation>
    </message>
    <message>
        <source>no space between equal styles</source>
        <translation>kein Abstand zwischen gleichen Vorlagen</translation>
    </message>
    <message>
        <source>no line breaks</source>
        <translation>keine Zeilenumbrüche</translation>
    </message>
    <message>
        <source>column widths</source>
        <translation>Spaltenbreiten</translation>
    </message>
    <message>
        <source>table width</source>
        <translation>Tabellenbreite</translation>
    </message>
    <message>
        <source>header rows</source>
        <translation>Kopfzeilen</translation>
    </message>
    <message>
        <source>cell spacing</source>
        <translation>Zellenabstand</translation>
    </message>
    <message>
        <source>padding above</source>
        <translation>Innenabstand oben</translation>
    </message>
    <message>
        <source>padding below</source>
        <translation>Innenabstand unten</translation>
    </message>
    <message>
        <source>padding on the left</source>
        <translation>Innenabstand links</translation>
    </message>
    <message>
        <source>padding on the right</source>
        <translation>Innenabstand rechts</translation>
    </message>
    <message>
        <source>vertical alignment</source>
        <translation>senkrechte Ausrichtung</translation>
    </message>
    <message>
        <source>rows of the cell</source>
        <translation>Zeilen der Zelle</translation>
    </message>
    <message>
        <source>columns of the cell</source>
        <translation>Spalten der Zelle</translation>
    </message>
    <message>
        <source>width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>formula</source>
        <translation>Formel</translation>
    </message>
    <message>
        <source>label</source>
        <translation>Listenzeichen</translation>
    </message>
    <message>
        <source>list level</source>
        <translation>Listenebene</translation>
    </message>
    <message>
        <source>behind the label</source>
        <translation>hinter dem Listenzeichen</translation>
    </message>
    <message>
        <source>label alignment</source>
        <translation>Ausrichtung des Listenzeichens</translation>
    </message>
    <message>
        <source>mark</source>
        <translation>Zeichen</translation>
    </message>
    <message>
        <source>date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>page size</source>
        <translation>Seitengröße</translation>
    </message>
    <message>
        <source>left margin</source>
        <translation>linker Rand</translation>
    </message>
    <message>
        <source>right margin</source>
        <translation>rechter Rand</translation>
    </message>
    <message>
        <source>top margin</source>
        <translation>oberer Rand</translation>
    </message>
    <message>
        <source>bottom margin</source>
        <translation>unterer Rand</translation>
    </message>
    <message>
        <source>tab distance</source>
        <translation>Tabulatorabstand</translation>
    </message>
    <message>
        <source>no header and footer on the first page</source>
        <translation>keine Kopf- und Fußzeile auf der ersten Seite</translation>
    </message>
    <message>
        <source>first page number</source>
        <translation>erste Seitenzahl</translation>
    </message>
    <message>
        <source>look of the header</source>
        <translation>Aussehen der Kopfzeile</translation>
    </message>
    <message>
        <source>look of the footer</source>
        <translation>Aussehen der Fußzeile</translation>
    </message>
    <message>
        <source>%1 removed</source>
        <translation>%1 entfernt</translation>
    </message>
    <message>
        <source>%1 added</source>
        <translation>%1 hinzugefügt</translation>
    </message>
    <message>
        <source>borders</source>
        <translation>Linien</translation>
    </message>
    <message>
        <source>padding</source>
        <translation>Innenabstand</translation>
    </message>
    <message>
        <source>centred</source>
        <translation>zentriert</translation>
    </message>
    <message>
        <source>justified</source>
        <translation>Blocksatz</translation>
    </message>
    <message>
        <source>right</source>
        <translation>rechts</translation>
    </message>
    <message>
        <source>left</source>
        <translation>links</translation>
    </message>
    <message>
        <source>%1 pt</source>
        <translation>%1 pt</translation>
    </message>
    <message>
        <source>%1 %</source>
        <translation>%1 %</translation>
    </message>
    <message>
        <source>%1 %2 added</source>
        <translation>%1 %2 hinzugefügt</translation>
    </message>
    <message>
        <source>%1 %2 removed</source>
        <translation>%1 %2 entfernt</translation>
    </message>
    <message>
        <source>%1 %2 → %3</source>
        <translation>%1 %2 → %3</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>before</source>
        <translation>vorher</translation>
    </message>
    <message>
        <source>after</source>
        <translation>nachher</translation>
    </message>
    <message>
        <source>no difference</source>
        <translation>kein Unterschied</translation>
    </message>
    <message>
        <source>tab</source>
        <translation>Tabulator</translation>
    </message>
    <message>
        <source>space</source>
        <translation>Leerzeichen</translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>nichts</translation>
    </message>
    <message>
        <source>endnote</source>
        <translation>Endnote</translation>
    </message>
    <message>
        <source>footnote</source>
        <translation>Fußnote</translation>
    </message>
    <message>
        <source>[picture]</source>
        <translation>[Bild]</translation>
    </message>
    <message>
        <source>label: %1</source>
        <translation>Listenzeichen: %1</translation>
    </message>
    <message>
        <source>dotted</source>
        <translation>gepunktet</translation>
    </message>
    <message>
        <source>dashed</source>
        <translation>gestrichelt</translation>
    </message>
    <message>
        <source>solid</source>
        <translation>durchgezogen</translation>
    </message>
    <message>
        <source>double</source>
        <translation>doppelt</translation>
    </message>
    <message>
        <source>dash-dotted</source>
        <translation>Strich-Punkt</translation>
    </message>
    <message>
        <source>dash-dot-dotted</source>
        <translation>Strich-Punkt-Punkt</translation>
    </message>
    <message>
        <source>groove</source>
        <translation>Rille</translation>
    </message>
    <message>
        <source>ridge</source>
        <translation>Grat</translation>
    </message>
    <message>
        <source>inset</source>
        <translation>eingelassen</translation>
    </message>
    <message>
        <source>outset</source>
        <translation>erhaben</translation>
    </message>
    <message>
        <source>decimal</source>
        <translation>dezimal</translation>
    </message>
    <message>
        <source>exactly</source>
        <translation>genau</translation>
    </message>
    <message>
        <source>at least</source>
        <translation>mindestens</translation>
    </message>
    <message>
        <source>at a distance of</source>
        <translation>im Abstand von</translation>
    </message>
    <message>
        <source>image added</source>
        <translation>Bilddaten hinzugefügt</translation>
    </message>
    <message>
        <source>image removed</source>
        <translation>Bilddaten entfernt</translation>
    </message>
    <message>
        <source>pixels</source>
        <translation>Bildpunkte</translation>
    </message>
    <message>
        <source>image changed</source>
        <translation>Bilddaten geändert</translation>
    </message>
    <message>
        <source>PDF of the picture changed</source>
        <translation>PDF des Bildes geändert</translation>
    </message>
    <message>
        <source>table %1</source>
        <translation>Tabelle %1</translation>
    </message>
    <message>
        <source>row %1</source>
        <translation>Zeile %1</translation>
    </message>
    <message>
        <source>column %1</source>
        <translation>Spalte %1</translation>
    </message>
    <message>
        <source>footnote %1</source>
        <translation>Fußnote %1</translation>
    </message>
    <message>
        <source>endnote %1</source>
        <translation>Endnote %1</translation>
    </message>
    <message>
        <source>comment %1</source>
        <translation>Kommentar %1</translation>
    </message>
    <message>
        <source>picture %1</source>
        <translation>Bild %1</translation>
    </message>
    <message>
        <source>paragraph %1</source>
        <translation>Absatz %1</translation>
    </message>
    <message>
        <source>document</source>
        <translation>Dokument</translation>
    </message>
    <message>
        <source>paragraphs %1–%2</source>
        <translation>Absätze %1–%2</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1, removed</source>
        <translation>%1, entfernt</translation>
    </message>
    <message>
        <source>%1, added</source>
        <translation>%1, hinzugefügt</translation>
    </message>
    <message>
        <source>%1 places, the first ones are: %2</source>
        <translation>%1 Stellen, die ersten sind: %2</translation>
    </message>
    <message>
        <source>in many places</source>
        <translation>an vielen Stellen</translation>
    </message>
    <message>
        <source>words removed: %1, words added: %2, other changes: %3</source>
        <translation>Wörter entfernt: %1, Wörter hinzugefügt: %2, andere Änderungen: %3</translation>
    </message>
    <message>
        <source>empty paragraph removed</source>
        <translation>leerer Absatz entfernt</translation>
    </message>
    <message>
        <source>empty paragraph added</source>
        <translation>leerer Absatz hinzugefügt</translation>
    </message>
    <message>
        <source>table of rows × columns %1 × %2 added</source>
        <translation>Tabelle mit Zeilen × Spalten %1 × %2 hinzugefügt</translation>
    </message>
    <message>
        <source>table of rows × columns %1 × %2 removed</source>
        <translation>Tabelle mit Zeilen × Spalten %1 × %2 entfernt</translation>
    </message>
    <message>
        <source>rows</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>columns</source>
        <translation>Spalten</translation>
    </message>
    <message>
        <source>automatic</source>
        <translation>automatisch</translation>
    </message>
    <message>
        <source>bottom</source>
        <translation>unten</translation>
    </message>
    <message>
        <source>top</source>
        <translation>oben</translation>
    </message>
    <message>
        <source>single</source>
        <translation>einfach</translation>
    </message>
    <message>
        <source>wavy</source>
        <translation>gewellt</translation>
    </message>
    <message>
        <source>spelling mistake</source>
        <translation>Rechtschreibfehler</translation>
    </message>
    <message>
        <source>all letters</source>
        <translation>alle Buchstaben</translation>
    </message>
    <message>
        <source>no letters</source>
        <translation>keine Buchstaben</translation>
    </message>
    <message>
        <source>small ones</source>
        <translation>Kapitälchen</translation>
    </message>
    <message>
        <source>first letters</source>
        <translation>Wortanfänge</translation>
    </message>
    <message>
        <source>raised by</source>
        <translation>höher um</translation>
    </message>
    <message>
        <source>lowered by</source>
        <translation>tiefer um</translation>
    </message>
    <message>
        <source>superscript</source>
        <translation>hochgestellt</translation>
    </message>
    <message>
        <source>subscript</source>
        <translation>tiefgestellt</translation>
    </message>
</context>
</TS>
