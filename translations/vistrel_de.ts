<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE">
<context>
    <name>app::frmAbout</name>
    <message>
        <source>About Vistrel</source>
        <translation>Über Vistrel</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Vistrel %1&lt;/h2&gt;&lt;p&gt;A fast image viewer with light editing: folders and single files, zoom, full screen, slide shows, colour, filter and geometry operations with undo, saving in a dozen formats, file management, the wallpaper and printing.&lt;/p&gt;&lt;p&gt;It is built on &lt;b&gt;Qt&lt;/b&gt; (LGPL 3), &lt;b&gt;libvips&lt;/b&gt; (LGPL 2.1 or later) and &lt;b&gt;libimagequant&lt;/b&gt; (GPL 3 or later), and reads the legacy formats through &lt;b&gt;ImageMagick&lt;/b&gt; (ImageMagick License), run as a separate helper program. The toolbar&apos;s own icons are part of Vistrel; the others come from the desktop&apos;s icon theme.&lt;/p&gt;&lt;p&gt;Made by the Vistrel developers, &lt;a href=&quot;https://github.com/vistrel/vistrel&quot;&gt;github.com/vistrel/vistrel&lt;/a&gt;. Free software under the GNU General Public License, version 3 or later.&lt;/p&gt;&lt;p&gt;&lt;a href=&quot;help:contents&quot;&gt;Read the manual&lt;/a&gt;&lt;/p&gt;</source>
        <translation>&lt;h2&gt;Vistrel %1&lt;/h2&gt;&lt;p&gt;Ein schneller Bildbetrachter mit einfacher Bearbeitung: Ordner und einzelne Dateien, Zoom, Vollbild, Diashows, Farb-, Filter- und Geometrieoperationen mit Rückgängig, Speichern in einem Dutzend Formaten, Dateiverwaltung, Hintergrundbild und Drucken.&lt;/p&gt;&lt;p&gt;Er baut auf &lt;b&gt;Qt&lt;/b&gt; (LGPL 3), &lt;b&gt;libvips&lt;/b&gt; (LGPL 2.1 oder später) und &lt;b&gt;libimagequant&lt;/b&gt; (GPL 3 oder später) auf und liest die alten Formate über &lt;b&gt;ImageMagick&lt;/b&gt; (ImageMagick-Lizenz), das als eigenes Hilfsprogramm läuft. Die eigenen Symbole der Werkzeugleiste gehören zu Vistrel; die übrigen stammen aus dem Symbolthema des Desktops.&lt;/p&gt;&lt;p&gt;Von den Vistrel-Entwicklern, &lt;a href=&quot;https://github.com/vistrel/vistrel&quot;&gt;github.com/vistrel/vistrel&lt;/a&gt;. Freie Software unter der GNU General Public License, Version 3 oder später.&lt;/p&gt;&lt;p&gt;&lt;a href=&quot;help:contents&quot;&gt;Handbuch lesen&lt;/a&gt;&lt;/p&gt;</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>app::frmMain</name>
    <message>
        <source>&amp;Pause Animation</source>
        <translation>Animation &amp;anhalten</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Ne&amp;xt Frame</source>
        <translation>Nä&amp;chstes Einzelbild</translation>
    </message>
    <message>
        <source>Next Frame</source>
        <translation>Nächstes Einzelbild</translation>
    </message>
    <message>
        <source>Previous Fra&amp;me</source>
        <translation>Voriges Ei&amp;nzelbild</translation>
    </message>
    <message>
        <source>Previous Frame</source>
        <translation>Voriges Einzelbild</translation>
    </message>
    <message>
        <source>%1: frame %2 is the last that could be read</source>
        <translation>%1: Einzelbild %2 ist das letzte, das gelesen werden konnte</translation>
    </message>
    <message>
        <source>Open &amp;Folder...</source>
        <translation>&amp;Ordner öffnen...</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>&amp;Open File...</source>
        <translation>Datei ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern u&amp;nter...</translation>
    </message>
    <message>
        <source>Cop&amp;y To...</source>
        <translation>Kop&amp;ieren nach...</translation>
    </message>
    <message>
        <source>&amp;Move To...</source>
        <translation>&amp;Verschieben nach...</translation>
    </message>
    <message>
        <source>Re&amp;name</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>Prop&amp;erties...</source>
        <translation>&amp;Eigenschaften...</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;Full Screen</source>
        <translation>&amp;Vollbild</translation>
    </message>
    <message>
        <source>&amp;Set Wallpaper</source>
        <translation>Als &amp;Hintergrundbild festlegen</translation>
    </message>
    <message>
        <source>Pr&amp;operties...</source>
        <translation>&amp;Eigenschaften...</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>P&amp;aste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Copy &amp;Path</source>
        <translation>&amp;Pfad kopieren</translation>
    </message>
    <message>
        <source>Select &amp;None</source>
        <translation>Auswahl &amp;aufheben</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <comment>the view mode</comment>
        <translation>&amp;Bild</translation>
    </message>
    <message>
        <source>&amp;List and Image</source>
        <translation>&amp;Liste und Bild</translation>
    </message>
    <message>
        <source>&amp;Thumbnails</source>
        <translation>&amp;Miniaturen</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>&amp;Original Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>&amp;Fit</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>&amp;Always Fit</source>
        <translation>&amp;Immer einpassen</translation>
    </message>
    <message>
        <source>Zoom I&amp;n</source>
        <translation>&amp;Vergrößern</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom O&amp;ut</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>&amp;Zoom...</source>
        <translation>&amp;Zoom...</translation>
    </message>
    <message>
        <source>Zoom to Sele&amp;ction</source>
        <translation>Auf A&amp;uswahl zoomen</translation>
    </message>
    <message>
        <source>Full Scr&amp;een</source>
        <translation>Vollbil&amp;d</translation>
    </message>
    <message>
        <source>Full Screen</source>
        <translation>Vollbild</translation>
    </message>
    <message>
        <source>&amp;Name</source>
        <translation>&amp;Name</translation>
    </message>
    <message>
        <source>Date &amp;Taken</source>
        <translation>&amp;Aufnahmedatum</translation>
    </message>
    <message>
        <source>Date &amp;Modified</source>
        <translation>&amp;Änderungsdatum</translation>
    </message>
    <message>
        <source>&amp;Size</source>
        <translation>&amp;Größe</translation>
    </message>
    <message>
        <source>T&amp;ype</source>
        <translation>&amp;Typ</translation>
    </message>
    <message>
        <source>&amp;Descending</source>
        <translation>Ab&amp;steigend</translation>
    </message>
    <message>
        <source>Next Pa&amp;ge</source>
        <translation>N&amp;ächste Seite</translation>
    </message>
    <message>
        <source>Next Page</source>
        <translation>Nächste Seite</translation>
    </message>
    <message>
        <source>Pre&amp;vious Page</source>
        <translation>Vori&amp;ge Seite</translation>
    </message>
    <message>
        <source>Previous Page</source>
        <translation>Vorige Seite</translation>
    </message>
    <message>
        <source>Tool&amp;bar</source>
        <translation>&amp;Werkzeugleiste</translation>
    </message>
    <message>
        <source>Status ba&amp;r</source>
        <translation>Statusleis&amp;te</translation>
    </message>
    <message>
        <source>&amp;Slide Show...</source>
        <translation>&amp;Diashow...</translation>
    </message>
    <message>
        <source>Slide Show</source>
        <translation>Diashow</translation>
    </message>
    <message>
        <source>&amp;Batch Convert...</source>
        <translation>&amp;Stapelkonvertierung...</translation>
    </message>
    <message>
        <source>Se&amp;t Wallpaper</source>
        <translation>Als &amp;Hintergrundbild festlegen</translation>
    </message>
    <message>
        <source>&amp;Remove Wallpaper</source>
        <translation>Hintergrundbild &amp;entfernen</translation>
    </message>
    <message>
        <source>&amp;Associate File Types with Vistrel...</source>
        <translation>Datei&amp;typen mit Vistrel verknüpfen...</translation>
    </message>
    <message>
        <source>&amp;Clear List of Recent Folders</source>
        <translation>Liste der zuletzt geöffneten Ordner &amp;leeren</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Optionen...</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;About Vistrel</source>
        <translation>&amp;Über Vistrel</translation>
    </message>
    <message>
        <source>&amp;Sort By</source>
        <translation>&amp;Sortieren nach</translation>
    </message>
    <message>
        <source>Color &amp;Depth</source>
        <translation>Farb&amp;tiefe</translation>
    </message>
    <message>
        <source>&amp;Filters</source>
        <translation>&amp;Filter</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Colors</source>
        <translation>&amp;Farben</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <comment>the menu</comment>
        <translation>B&amp;ild</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Can&apos;t move the file to the Trash</source>
        <translation>Die Datei kann nicht in den Papierkorb verschoben werden</translation>
    </message>
    <message>
        <source>the file stays where it is</source>
        <translation>die Datei bleibt, wo sie ist</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>&amp;New name:</source>
        <translation>&amp;Neuer Name:</translation>
    </message>
    <message>
        <source>Move To</source>
        <translation>Verschieben nach</translation>
    </message>
    <message>
        <source>Copy To</source>
        <translation>Kopieren nach</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>The file extension is different. Do you want to continue?</source>
        <translation>Die Dateiendung ist anders. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>Can&apos;t move file</source>
        <translation>Datei kann nicht verschoben werden</translation>
    </message>
    <message>
        <source>Can&apos;t copy file</source>
        <translation>Datei kann nicht kopiert werden</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Can&apos;t find file</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Can&apos;t save file</source>
        <translation>Datei kann nicht gespeichert werden</translation>
    </message>
    <message>
        <source>frame</source>
        <translation>Einzelbild</translation>
    </message>
    <message>
        <source>page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>the first %1 only</source>
        <translation>nur %1 1</translation>
    </message>
    <message>
        <source>%1 %2 only</source>
        <translation>nur %1 %2</translation>
    </message>
    <message>
        <source>%1 bits per channel</source>
        <translation>%1 Bit pro Kanal</translation>
    </message>
    <message>
        <source>%1 has %2. Saving over it keeps %3.</source>
        <translation>%1 hat %2. Beim Überschreiben bleibt %3 erhalten.</translation>
    </message>
    <message>
        <source> and </source>
        <translation> und </translation>
    </message>
    <message>
        <source>, at </source>
        <translation>, mit </translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ist bereits vorhanden.
Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>Save Changes</source>
        <translation>Änderungen speichern</translation>
    </message>
    <message>
        <source>Changed on Disk</source>
        <translation>Auf dem Datenträger geändert</translation>
    </message>
    <message>
        <source>Print to PDF</source>
        <translation>In PDF drucken</translation>
    </message>
    <message>
        <source>PDF files (*.pdf)</source>
        <translation>PDF-Dateien (*.pdf)</translation>
    </message>
    <message>
        <source>Can&apos;t print</source>
        <translation>Drucken nicht möglich</translation>
    </message>
    <message>
        <source>Can&apos;t apply %1</source>
        <translation>%1 kann nicht angewendet werden</translation>
    </message>
    <message>
        <source>... (Esc cancels)</source>
        <translation>... (Esc bricht ab)</translation>
    </message>
    <message>
        <source>Set Wallpaper</source>
        <translation>Hintergrundbild festlegen</translation>
    </message>
    <message>
        <source>Are you sure you want to set the wallpaper to this image?</source>
        <translation>Möchten Sie dieses Bild wirklich als Hintergrundbild festlegen?</translation>
    </message>
    <message>
        <source>Remove Wallpaper</source>
        <translation>Hintergrundbild entfernen</translation>
    </message>
    <message>
        <source>Are you sure you want to remove the desktop wallpaper?</source>
        <translation>Möchten Sie das Hintergrundbild des Desktops wirklich entfernen?</translation>
    </message>
    <message>
        <source>Zoom to Selection</source>
        <translation>Auf Auswahl zoomen</translation>
    </message>
    <message>
        <source>Please select an area to zoom</source>
        <translation>Bitte wählen Sie einen Bereich zum Zoomen aus</translation>
    </message>
    <message>
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
</context>
<context>
    <name>app::frmOptions</name>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>Background Colors</source>
        <translation>Hintergrundfarben</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Don&apos;t show any image</source>
        <translation>&amp;Kein Bild anzeigen</translation>
    </message>
    <message>
        <source>&amp;Open last file or folder from previous session</source>
        <translation>&amp;Letzte Datei oder letzten Ordner der vorigen Sitzung öffnen</translation>
    </message>
    <message>
        <source>&amp;Show the Open Folder dialog</source>
        <translation>Dialog „Ordner öffnen“ &amp;anzeigen</translation>
    </message>
    <message>
        <source>&amp;Open files with image extensions (bmp, jpg...)</source>
        <translation>Dateien mit Bild&amp;endungen öffnen (bmp, jpg...)</translation>
    </message>
    <message>
        <source>O&amp;pen all files</source>
        <translation>A&amp;lle Dateien öffnen</translation>
    </message>
    <message>
        <source>C&amp;lassic types only (no HEIC, WebP, AVIF, JPEG XL, SVG...)</source>
        <translation>Nur &amp;klassische Typen (kein HEIC, WebP, AVIF, JPEG XL, SVG...)</translation>
    </message>
    <message>
        <source>&amp;Toolbar</source>
        <translation>&amp;Werkzeugleiste</translation>
    </message>
    <message>
        <source>&amp;Status bar</source>
        <translation>&amp;Statusleiste</translation>
    </message>
    <message>
        <source>&amp;Enlarge small images to fit the window</source>
        <translation>Kleine Bilder auf Fenstergröße &amp;vergrößern</translation>
    </message>
    <message>
        <source>scrolls the picture</source>
        <translation>verschiebt das Bild</translation>
    </message>
    <message>
        <source>zooms</source>
        <translation>zoomt</translation>
    </message>
    <message>
        <source>goes to the next or previous image</source>
        <translation>wechselt zum nächsten oder vorigen Bild</translation>
    </message>
    <message>
        <source>The mouse &amp;wheel</source>
        <translation>Das Maus&amp;rad</translation>
    </message>
    <message>
        <source>Colours</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>&amp;Manage colours (the picture&apos;s profile and the screen&apos;s)</source>
        <translation>&amp;Farben verwalten (Profil des Bildes und des Bildschirms)</translation>
    </message>
    <message>
        <source>Relative colorimetric</source>
        <translation>Relativ farbmetrisch</translation>
    </message>
    <message>
        <source>Perceptual</source>
        <translation>Wahrnehmungsorientiert</translation>
    </message>
    <message>
        <source>none: sRGB</source>
        <translation>keins: sRGB</translation>
    </message>
    <message>
        <source>&amp;Browse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>Screen Profile</source>
        <translation>Bildschirmprofil</translation>
    </message>
    <message>
        <source>ICC profiles (*.icc *.icm)</source>
        <translation>ICC-Profile (*.icc *.icm)</translation>
    </message>
    <message>
        <source>Intent:</source>
        <translation>Wiedergabeabsicht:</translation>
    </message>
    <message>
        <source>Screen profile:</source>
        <translation>Bildschirmprofil:</translation>
    </message>
    <message>
        <source>Profile file:</source>
        <translation>Profildatei:</translation>
    </message>
    <message>
        <source>Image:</source>
        <translation>Bild:</translation>
    </message>
    <message>
        <source>Thumbnails:</source>
        <translation>Miniaturen:</translation>
    </message>
    <message>
        <source>Full screen:</source>
        <translation>Vollbild:</translation>
    </message>
    <message>
        <source>Select...</source>
        <translation>Auswählen...</translation>
    </message>
    <message>
        <source>&amp;Show &apos;Open with Vistrel&apos; in the folder context menu of Windows Explorer</source>
        <translation>„Mit Vistrel öffnen“ im Ordner-Kontextmenü des Windows-Explorers &amp;zeigen</translation>
    </message>
    <message>
        <source>&amp;Show &apos;Open with Vistrel&apos; in the file manager&apos;s menu for folders</source>
        <translation>„Mit Vistrel öffnen“ im Ordnermenü des Dateimanagers &amp;zeigen</translation>
    </message>
    <message>
        <source>D&amp;on&apos;t ask for confirmation before deleting a file</source>
        <translation>Vor dem Löschen einer Datei &amp;nicht nachfragen</translation>
    </message>
    <message>
        <source>&amp;Disable list of recent folders</source>
        <translation>Liste der zuletzt geöffneten Ordner &amp;deaktivieren</translation>
    </message>
    <message>
        <source>name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>date taken</source>
        <translation>Aufnahmedatum</translation>
    </message>
    <message>
        <source>date modified</source>
        <translation>Änderungsdatum</translation>
    </message>
    <message>
        <source>size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>&amp;descending</source>
        <translation>&amp;absteigend</translation>
    </message>
    <message>
        <source>Sort the &amp;list by</source>
        <translation>&amp;Liste sortieren nach</translation>
    </message>
</context>
<context>
    <name>base</name>
    <message>
        <source>Bitmap image</source>
        <translation>Bitmap-Bild</translation>
    </message>
    <message>
        <source>Cals image</source>
        <translation>CALS-Bild</translation>
    </message>
    <message>
        <source>Cursor</source>
        <translation>Mauszeiger</translation>
    </message>
    <message>
        <source>Paintbrush dcx image</source>
        <translation>Paintbrush-DCX-Bild</translation>
    </message>
    <message>
        <source>Dib image</source>
        <translation>DIB-Bild</translation>
    </message>
    <message>
        <source>Enhanced metafile image</source>
        <translation>Erweiterte Metadatei</translation>
    </message>
    <message>
        <source>Gif image</source>
        <translation>GIF-Bild</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Jpeg image</source>
        <translation>JPEG-Bild</translation>
    </message>
    <message>
        <source>Portable bitmap image</source>
        <translation>Portable-Bitmap-Bild</translation>
    </message>
    <message>
        <source>Paintbrush pcx image</source>
        <translation>Paintbrush-PCX-Bild</translation>
    </message>
    <message>
        <source>Portable graymap image</source>
        <translation>Portable-Graymap-Bild</translation>
    </message>
    <message>
        <source>Png image</source>
        <translation>PNG-Bild</translation>
    </message>
    <message>
        <source>Portable pixmap image</source>
        <translation>Portable-Pixmap-Bild</translation>
    </message>
    <message>
        <source>Rle image</source>
        <translation>RLE-Bild</translation>
    </message>
    <message>
        <source>Targa image</source>
        <translation>Targa-Bild</translation>
    </message>
    <message>
        <source>Tiff image</source>
        <translation>TIFF-Bild</translation>
    </message>
    <message>
        <source>Windows metafile image</source>
        <translation>Windows-Metadatei</translation>
    </message>
    <message>
        <source>Word Perfect graphic bitmap image</source>
        <translation>WordPerfect-Bitmap-Grafik</translation>
    </message>
    <message>
        <source>WebP image</source>
        <translation>WebP-Bild</translation>
    </message>
    <message>
        <source>HEIF image</source>
        <translation>HEIF-Bild</translation>
    </message>
    <message>
        <source>AVIF image</source>
        <translation>AVIF-Bild</translation>
    </message>
    <message>
        <source>JPEG XL image</source>
        <translation>JPEG-XL-Bild</translation>
    </message>
    <message>
        <source>JPEG 2000 image</source>
        <translation>JPEG-2000-Bild</translation>
    </message>
    <message>
        <source>SVG drawing</source>
        <translation>SVG-Zeichnung</translation>
    </message>
    <message>
        <source>OpenEXR image</source>
        <translation>OpenEXR-Bild</translation>
    </message>
    <message>
        <source>Photoshop image</source>
        <translation>Photoshop-Bild</translation>
    </message>
    <message>
        <source>PDF document</source>
        <translation>PDF-Dokument</translation>
    </message>
    <message>
        <source>Camera RAW image</source>
        <translation>Kamera-RAW-Bild</translation>
    </message>
</context>
<context>
    <name>browse</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source> file</source>
        <translation>-Datei</translation>
    </message>
    <message>
        <source>Please select a folder</source>
        <translation>Bitte wählen Sie einen Ordner</translation>
    </message>
    <message>
        <source>Folder not found</source>
        <translation>Ordner nicht gefunden</translation>
    </message>
    <message>
        <source>No image found</source>
        <translation>Kein Bild gefunden</translation>
    </message>
    <message>
        <source>Are you sure you want to clear the list of recent folders?</source>
        <translation>Möchten Sie die Liste der zuletzt geöffneten Ordner wirklich leeren?</translation>
    </message>
    <message>
        <source>%1 frames</source>
        <translation>%1 Einzelbilder</translation>
    </message>
    <message>
        <source>%1 pages</source>
        <translation>%1 Seiten</translation>
    </message>
    <message>
        <source>Page </source>
        <translation>Seite </translation>
    </message>
    <message>
        <source> of </source>
        <translation> von </translation>
    </message>
</context>
<context>
    <name>browse::FileListModel</name>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
</context>
<context>
    <name>browse::ThumbnailsView</name>
    <message>
        <source>Can&apos;t open file</source>
        <translation>Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>&lt;&lt; First</source>
        <translation>&lt;&lt; Erste</translation>
    </message>
    <message>
        <source>&lt; Previous</source>
        <translation>&lt; Zurück</translation>
    </message>
    <message>
        <source>Next &gt;</source>
        <translation>Weiter &gt;</translation>
    </message>
    <message>
        <source>Last &gt;&gt;</source>
        <translation>Letzte &gt;&gt;</translation>
    </message>
    <message>
        <source>Go to Page...</source>
        <translation>Gehe zu Seite...</translation>
    </message>
</context>
<context>
    <name>browse::frmAbrirCarpeta</name>
    <message>
        <source>Open Folder</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Existing</source>
        <translation>Vorhanden</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt verwendet</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Folder:</source>
        <translation>&amp;Ordner:</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Remove All</source>
        <translation>Alle entfernen</translation>
    </message>
</context>
<context>
    <name>document</name>
    <message>
        <source>Can&apos;t open file</source>
        <translation>Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Folder scan cancelled</source>
        <translation>Ordnersuche abgebrochen</translation>
    </message>
    <message>
        <source>The RAW image could not be developed: its preview is shown</source>
        <translation>Das RAW-Bild konnte nicht entwickelt werden: seine Vorschau wird gezeigt</translation>
    </message>
    <message>
        <source>: Can&apos;t open file</source>
        <translation>: Datei kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>Pasted image</source>
        <translation>Eingefügtes Bild</translation>
    </message>
    <message>
        <source>saved with recompression: </source>
        <translation>mit erneuter Kompression gespeichert: </translation>
    </message>
    <message>
        <source>: Can&apos;t open page %1</source>
        <translation>: Seite %1 kann nicht geöffnet werden</translation>
    </message>
    <message>
        <source>&apos;%1&apos; has changed on disk. Read it again and lose your changes?</source>
        <translation>„%1“ wurde auf dem Datenträger geändert. Neu einlesen und Ihre Änderungen verwerfen?</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 Bytes</translation>
    </message>
    <message>
        <source>page %1/%2</source>
        <translation>Seite %1/%2</translation>
    </message>
    <message>
        <source>frame %1/%2</source>
        <translation>Einzelbild %1/%2</translation>
    </message>
</context>
<context>
    <name>edit</name>
    <message>
        <source>can&apos;t apply %1: %2</source>
        <translation>%1 kann nicht angewendet werden: %2</translation>
    </message>
    <message>
        <source>the name pattern is empty</source>
        <translation>das Namensmuster ist leer</translation>
    </message>
    <message>
        <source>a name cannot hold /</source>
        <translation>ein Name darf kein / enthalten</translation>
    </message>
    <message>
        <source>an unknown field %1</source>
        <translation>ein unbekanntes Feld %1</translation>
    </message>
    <message>
        <source>a { without its } or a } without its {</source>
        <translation>eine { ohne ihre } oder eine } ohne ihre {</translation>
    </message>
    <message>
        <source>%1 is already there</source>
        <translation>%1 ist bereits vorhanden</translation>
    </message>
    <message>
        <source>%1: skipped (%2)</source>
        <translation>%1: übersprungen (%2)</translation>
    </message>
    <message>
        <source>%1 written, %2 skipped, %3 failed</source>
        <translation>%1 geschrieben, %2 übersprungen, %3 fehlgeschlagen</translation>
    </message>
    <message>
        <source>, %1 not started (stopped)</source>
        <translation>, %1 nicht begonnen (abgebrochen)</translation>
    </message>
    <message>
        <source>Please enter a value</source>
        <translation>Bitte geben Sie einen Wert ein</translation>
    </message>
    <message>
        <source>Please enter a value greater than zero</source>
        <translation>Bitte geben Sie einen Wert größer als null ein</translation>
    </message>
    <message>
        <source>Please enter a value smaller than 2049</source>
        <translation>Bitte geben Sie einen Wert kleiner als 2049 ein</translation>
    </message>
    <message>
        <source>at least %1</source>
        <translation>mindestens %1</translation>
    </message>
    <message>
        <source>from %1 to %2</source>
        <translation>von %1 bis %2</translation>
    </message>
    <message>
        <source>%1 takes %2 value(s): %3</source>
        <translation>%1 erwartet %2 Wert(e): %3</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number</source>
        <translation>%1: „%2“ ist keine Zahl</translation>
    </message>
    <message>
        <source>%1: %2 must be a whole number, not %3</source>
        <translation>%1: %2 muss eine ganze Zahl sein, nicht %3</translation>
    </message>
    <message>
        <source>%1: %2 must be %3, not %4</source>
        <translation>%1: %2 muss %3 sein, nicht %4</translation>
    </message>
    <message>
        <source>ColorDepth takes 1 value: bits (1, 4, 8 or 24)</source>
        <translation>ColorDepth erwartet 1 Wert: Bit (1, 4, 8 oder 24)</translation>
    </message>
    <message>
        <source>Unknown operation &quot;%1&quot;; known: %2</source>
        <translation>Unbekannte Operation „%1“; bekannt sind: %2</translation>
    </message>
    <message>
        <source>No operation given; known: %1</source>
        <translation>Keine Operation angegeben; bekannt sind: %1</translation>
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
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
</context>
<context>
    <name>edit::Catalogue</name>
    <message>
        <source>&amp;Brightness...</source>
        <translation>&amp;Helligkeit...</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Contrast...</source>
        <translation>&amp;Kontrast...</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>&amp;Gamma...</source>
        <translation>&amp;Gamma...</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>&amp;Hue / Saturation / Luminance...</source>
        <translation>&amp;Farbton / Sättigung / Helligkeit...</translation>
    </message>
    <message>
        <source>Hue / Saturation / Luminance</source>
        <translation>Farbton / Sättigung / Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Red / Green / Blue...</source>
        <translation>&amp;Rot / Grün / Blau...</translation>
    </message>
    <message>
        <source>Red / Green / Blue</source>
        <translation>Rot / Grün / Blau</translation>
    </message>
    <message>
        <source>&amp;Solarize...</source>
        <translation>&amp;Solarisation...</translation>
    </message>
    <message>
        <source>Solarize</source>
        <translation>Solarisation</translation>
    </message>
    <message>
        <source>&amp;Equalize</source>
        <translation>&amp;Ausgleichen</translation>
    </message>
    <message>
        <source>Equalize</source>
        <translation>Ausgleichen</translation>
    </message>
    <message>
        <source>&amp;Negative</source>
        <translation>&amp;Negativ</translation>
    </message>
    <message>
        <source>Negative</source>
        <translation>Negativ</translation>
    </message>
    <message>
        <source>Gr&amp;ay Scale</source>
        <translation>Gra&amp;ustufen</translation>
    </message>
    <message>
        <source>Gray Scale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>&amp;1 Bit (2 Colors)</source>
        <translation>&amp;1 Bit (2 Farben)</translation>
    </message>
    <message>
        <source>Color Depth</source>
        <translation>Farbtiefe</translation>
    </message>
    <message>
        <source>&amp;4 Bits (16 Colors)</source>
        <translation>&amp;4 Bit (16 Farben)</translation>
    </message>
    <message>
        <source>&amp;8 Bits (256 Colors)</source>
        <translation>&amp;8 Bit (256 Farben)</translation>
    </message>
    <message>
        <source>&amp;24 Bits (True Color)</source>
        <translation>&amp;24 Bit (Echtfarben)</translation>
    </message>
    <message>
        <source>Conca&amp;ve Parabolic</source>
        <translation>Konkav &amp;parabolisch</translation>
    </message>
    <message>
        <source>Concave Parabolic</source>
        <translation>Konkav parabolisch</translation>
    </message>
    <message>
        <source>Conve&amp;x Parabolic</source>
        <translation>Kon&amp;vex parabolisch</translation>
    </message>
    <message>
        <source>Convex Parabolic</source>
        <translation>Konvex parabolisch</translation>
    </message>
    <message>
        <source>Red E&amp;ye Removal</source>
        <translation>Rote Aug&amp;en entfernen</translation>
    </message>
    <message>
        <source>Red Eye Removal</source>
        <translation>Rote Augen entfernen</translation>
    </message>
    <message>
        <source>Select an area to apply red eye removal</source>
        <translation>Wählen Sie einen Bereich aus, in dem rote Augen entfernt werden sollen</translation>
    </message>
    <message>
        <source>Rotate L&amp;eft</source>
        <translation>Nach &amp;links drehen</translation>
    </message>
    <message>
        <source>Rotate Left</source>
        <translation>Links drehen</translation>
    </message>
    <message>
        <source>Rotate Righ&amp;t</source>
        <translation>Nach &amp;rechts drehen</translation>
    </message>
    <message>
        <source>Rotate Right</source>
        <translation>Rechts drehen</translation>
    </message>
    <message>
        <source>Flip &amp;Horizontal</source>
        <translation>&amp;Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Flip Horizontal</source>
        <translation>Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Flip Vertic&amp;al</source>
        <translation>&amp;Vertikal spiegeln</translation>
    </message>
    <message>
        <source>Flip Vertical</source>
        <translation>Vertikal spiegeln</translation>
    </message>
    <message>
        <source>F&amp;lip</source>
        <translation>&amp;Kippen</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Kippen</translation>
    </message>
    <message>
        <source>&amp;Mirror</source>
        <translation>&amp;Spiegeln</translation>
    </message>
    <message>
        <source>Mirror</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>&amp;Rotate...</source>
        <translation>&amp;Drehen...</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>Re&amp;size...</source>
        <translation>&amp;Größe ändern...</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>&amp;Crop</source>
        <translation>&amp;Zuschneiden</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>Select an area before cropping</source>
        <translation>Wählen Sie vor dem Zuschneiden einen Bereich aus</translation>
    </message>
    <message>
        <source>Perspecti&amp;ve...</source>
        <translation>&amp;Perspektive...</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspektive</translation>
    </message>
    <message>
        <source>P&amp;inch...</source>
        <translation>Z&amp;usammenziehen...</translation>
    </message>
    <message>
        <source>Pinch</source>
        <translation>Zusammenziehen</translation>
    </message>
    <message>
        <source>Ri&amp;pple...</source>
        <translation>&amp;Wellen...</translation>
    </message>
    <message>
        <source>Ripple</source>
        <translation>Wellen</translation>
    </message>
    <message>
        <source>S&amp;wirl...</source>
        <translation>Strud&amp;el...</translation>
    </message>
    <message>
        <source>Swirl</source>
        <translation>Strudel</translation>
    </message>
    <message>
        <source>&amp;Blend...</source>
        <translation>&amp;Verwischen...</translation>
    </message>
    <message>
        <source>Blend</source>
        <translation>Verwischen</translation>
    </message>
    <message>
        <source>B&amp;lur</source>
        <translation>&amp;Weichzeichnen</translation>
    </message>
    <message>
        <source>Blur</source>
        <translation>Weichzeichnen</translation>
    </message>
    <message>
        <source>&amp;Diffuse</source>
        <translation>&amp;Streuen</translation>
    </message>
    <message>
        <source>Diffuse</source>
        <translation>Streuen</translation>
    </message>
    <message>
        <source>D&amp;ilate</source>
        <translation>&amp;Ausdehnen</translation>
    </message>
    <message>
        <source>Dilate</source>
        <translation>Ausdehnen</translation>
    </message>
    <message>
        <source>&amp;Erode</source>
        <translation>&amp;Erodieren</translation>
    </message>
    <message>
        <source>Erode</source>
        <translation>Erodieren</translation>
    </message>
    <message>
        <source>Medi&amp;an</source>
        <translation>Me&amp;dian</translation>
    </message>
    <message>
        <source>Median</source>
        <translation>Median</translation>
    </message>
    <message>
        <source>&amp;Mosaic...</source>
        <translation>&amp;Mosaik...</translation>
    </message>
    <message>
        <source>Mosaic</source>
        <translation>Mosaik</translation>
    </message>
    <message>
        <source>Mo&amp;tion Blur...</source>
        <translation>&amp;Bewegungsunschärfe...</translation>
    </message>
    <message>
        <source>Motion Blur</source>
        <translation>Bewegungsunschärfe</translation>
    </message>
    <message>
        <source>&amp;Noise...</source>
        <translation>&amp;Rauschen...</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>&amp;Sharpen...</source>
        <translation>Sc&amp;härfen...</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message>
        <source>S&amp;often...</source>
        <translation>&amp;Glätten...</translation>
    </message>
    <message>
        <source>Soften</source>
        <translation>Glätten</translation>
    </message>
</context>
<context>
    <name>edit::DialogDescriptions</name>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Value:</source>
        <translation>&amp;Wert:</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Gamma</source>
        <translation>Gamma</translation>
    </message>
    <message>
        <source>Hue / Saturation / Luminance</source>
        <translation>Farbton / Sättigung / Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Hue:</source>
        <translation>&amp;Farbton:</translation>
    </message>
    <message>
        <source>&amp;Saturation:</source>
        <translation>&amp;Sättigung:</translation>
    </message>
    <message>
        <source>&amp;Luminance:</source>
        <translation>&amp;Helligkeit:</translation>
    </message>
    <message>
        <source>Red / Green / Blue</source>
        <translation>Rot / Grün / Blau</translation>
    </message>
    <message>
        <source>&amp;Red:</source>
        <translation>&amp;Rot:</translation>
    </message>
    <message>
        <source>&amp;Green:</source>
        <translation>&amp;Grün:</translation>
    </message>
    <message>
        <source>&amp;Blue:</source>
        <translation>&amp;Blau:</translation>
    </message>
    <message>
        <source>Solarize</source>
        <translation>Solarisation</translation>
    </message>
    <message>
        <source>Blend</source>
        <translation>Verwischen</translation>
    </message>
    <message>
        <source>Mosaic</source>
        <translation>Mosaik</translation>
    </message>
    <message>
        <source>&amp;Block size:</source>
        <translation>&amp;Blockgröße:</translation>
    </message>
    <message>
        <source>Motion Blur</source>
        <translation>Bewegungsunschärfe</translation>
    </message>
    <message>
        <source>&amp;Horizontal speed:</source>
        <translation>&amp;Horizontale Geschwindigkeit:</translation>
    </message>
    <message>
        <source>&amp;Vertical speed:</source>
        <translation>&amp;Vertikale Geschwindigkeit:</translation>
    </message>
    <message>
        <source>&amp;Intensity:</source>
        <translation>&amp;Intensität:</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>&amp;Frequency:</source>
        <translation>&amp;Frequenz:</translation>
    </message>
    <message>
        <source>Sharpen</source>
        <translation>Schärfen</translation>
    </message>
    <message>
        <source>Soften</source>
        <translation>Glätten</translation>
    </message>
    <message>
        <source>Perspective</source>
        <translation>Perspektive</translation>
    </message>
    <message>
        <source>&amp;Bottom to top</source>
        <translation>Von &amp;unten nach oben</translation>
    </message>
    <message>
        <source>&amp;Top to bottom</source>
        <translation>Von &amp;oben nach unten</translation>
    </message>
    <message>
        <source>&amp;Left to right</source>
        <translation>Von &amp;links nach rechts</translation>
    </message>
    <message>
        <source>&amp;Right to left</source>
        <translation>Von &amp;rechts nach links</translation>
    </message>
    <message>
        <source>Pinch</source>
        <translation>Zusammenziehen</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Actual width:</source>
        <translation>Aktuelle Breite:</translation>
    </message>
    <message>
        <source>Actual height:</source>
        <translation>Aktuelle Höhe:</translation>
    </message>
    <message>
        <source>&amp;New width:</source>
        <translation>&amp;Neue Breite:</translation>
    </message>
    <message>
        <source>N&amp;ew height:</source>
        <translation>N&amp;eue Höhe:</translation>
    </message>
    <message>
        <source>&amp;Keep aspect ratio</source>
        <translation>Seitenverhältnis &amp;beibehalten</translation>
    </message>
    <message>
        <source>Ripple</source>
        <translation>Wellen</translation>
    </message>
    <message>
        <source>&amp;Horizontal direction</source>
        <translation>&amp;Horizontale Richtung</translation>
    </message>
    <message>
        <source>&amp;Vertical direction</source>
        <translation>&amp;Vertikale Richtung</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>&amp;Angle:</source>
        <translation>&amp;Winkel:</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
    <message>
        <source>Swirl</source>
        <translation>Strudel</translation>
    </message>
</context>
<context>
    <name>edit::frmBatch</name>
    <message>
        <source>Batch Convert</source>
        <translation>Stapelkonvertierung</translation>
    </message>
    <message>
        <source>Files:</source>
        <translation>Dateien:</translation>
    </message>
    <message>
        <source>&amp;Into the folder:</source>
        <translation>&amp;In den Ordner:</translation>
    </message>
    <message>
        <source>Each file&apos;s own type</source>
        <translation>Typ der jeweiligen Datei</translation>
    </message>
    <message>
        <source>&amp;Format:</source>
        <translation>&amp;Format:</translation>
    </message>
    <message>
        <source>&amp;Quality (WebP, HEIF, AVIF, JPEG XL):</source>
        <translation>&amp;Qualität (WebP, HEIF, AVIF, JPEG XL):</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>&amp;Names:</source>
        <translation>&amp;Namen:</translation>
    </message>
    <message>
        <source>Skip it</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Replace it</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Keep both</source>
        <translation>Beide behalten</translation>
    </message>
    <message>
        <source>When a &amp;name is taken:</source>
        <translation>Wenn ein &amp;Name vergeben ist:</translation>
    </message>
    <message>
        <source>for example: Brightness 10 Sharpen 3</source>
        <translation>zum Beispiel: Brightness 10 Sharpen 3</translation>
    </message>
    <message>
        <source>&amp;Operations:</source>
        <translation>&amp;Operationen:</translation>
    </message>
    <message>
        <source>%1 images in %2</source>
        <translation>%1 Bilder in %2</translation>
    </message>
    <message>
        <source>The folder cannot be made</source>
        <translation>Der Ordner kann nicht angelegt werden</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>edit::frmDiseno</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
</context>
<context>
    <name>files</name>
    <message>
        <source>the file does not exist</source>
        <translation>die Datei existiert nicht</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>es ist ein Ordner</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>keine normale Datei</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>keine Berechtigung zum Lesen</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>not an image this program reads</source>
        <translation>kein Bild, das dieses Programm liest</translation>
    </message>
    <message>
        <source>this format cannot be written</source>
        <translation>dieses Format kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the image is too large for this format</source>
        <translation>das Bild ist zu groß für dieses Format</translation>
    </message>
    <message>
        <source>the folder does not exist</source>
        <translation>der Ordner existiert nicht</translation>
    </message>
    <message>
        <source>the link points to no file</source>
        <translation>die Verknüpfung zeigt auf keine Datei</translation>
    </message>
    <message>
        <source>the file is marked as read-only</source>
        <translation>die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>no permission to write in the folder</source>
        <translation>keine Berechtigung zum Schreiben in den Ordner</translation>
    </message>
    <message>
        <source>the disk is full or the write failed</source>
        <translation>der Datenträger ist voll oder das Schreiben ist fehlgeschlagen</translation>
    </message>
    <message>
        <source>All image files</source>
        <translation>Alle Bilddateien</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>. Destination file is as marked as read-only</source>
        <translation>. Die Zieldatei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>. File is marked as read-only</source>
        <translation>. Die Datei ist schreibgeschützt</translation>
    </message>
    <message>
        <source>The file extension is different. Do you want to continue?</source>
        <translation>Die Dateiendung ist anders. Möchten Sie fortfahren?</translation>
    </message>
    <message>
        <source>File already exists</source>
        <translation>Datei ist bereits vorhanden</translation>
    </message>
    <message>
        <source>Can&apos;t rename file</source>
        <translation>Datei kann nicht umbenannt werden</translation>
    </message>
    <message>
        <source>Can&apos;t find file</source>
        <translation>Datei nicht gefunden</translation>
    </message>
    <message>
        <source>The file name can&apos;t include any of the following characters: \ / : ? &quot; &lt; &gt; |</source>
        <translation>Der Dateiname darf keines der folgenden Zeichen enthalten: \ / : ? &quot; &lt; &gt; |</translation>
    </message>
    <message>
        <source>Move &quot;%1&quot; to the Trash?</source>
        <translation>„%1“ in den Papierkorb verschieben?</translation>
    </message>
    <message>
        <source> bytes (</source>
        <translation> Bytes (</translation>
    </message>
    <message>
        <source> KB)</source>
        <translation> KB)</translation>
    </message>
    <message>
        <source>(Unknow)</source>
        <translation>(Unbekannt)</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Modified</source>
        <translation>Geändert</translation>
    </message>
    <message>
        <source>Width x height</source>
        <translation>Breite x Höhe</translation>
    </message>
    <message>
        <source>Animation</source>
        <translation>Animation</translation>
    </message>
    <message>
        <source>Pages</source>
        <translation>Seiten</translation>
    </message>
</context>
<context>
    <name>files::frmProperties</name>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>files::frmSaveOptions</name>
    <message>
        <source>Save Options</source>
        <translation>Speicheroptionen</translation>
    </message>
    <message>
        <source>&amp;Quality (100 is lossless):</source>
        <translation>&amp;Qualität (100 ist verlustfrei):</translation>
    </message>
    <message>
        <source>LZW</source>
        <translation>LZW</translation>
    </message>
    <message>
        <source>Deflate</source>
        <translation>Deflate</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Keine</translation>
    </message>
    <message>
        <source>&amp;Compression:</source>
        <translation>&amp;Kompression:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>imaging</name>
    <message>
        <source>%1 frames, %2 s</source>
        <translation>%1 Einzelbilder, %2 s</translation>
    </message>
    <message>
        <source>unreadable profile</source>
        <translation>unlesbares Profil</translation>
    </message>
    <message>
        <source>CMYK (standard press profile)</source>
        <translation>CMYK (Standard-Druckprofil)</translation>
    </message>
    <message>
        <source>sRGB (assumed)</source>
        <translation>sRGB (angenommen)</translation>
    </message>
    <message>
        <source>the file is not a JPEG this program can move</source>
        <translation>die Datei ist kein JPEG, das dieses Programm verlustfrei bearbeiten kann</translation>
    </message>
    <message>
        <source>the image is not a multiple of %1 pixels</source>
        <translation>das Bild ist kein Vielfaches von %1 Pixeln</translation>
    </message>
    <message>
        <source>the crop does not start on the %1-pixel block grid</source>
        <translation>der Ausschnitt beginnt nicht auf dem %1-Pixel-Blockraster</translation>
    </message>
    <message>
        <source>Top-left</source>
        <translation>Oben links</translation>
    </message>
    <message>
        <source>Top-right</source>
        <translation>Oben rechts</translation>
    </message>
    <message>
        <source>Bottom-right</source>
        <translation>Unten rechts</translation>
    </message>
    <message>
        <source>Bottom-left</source>
        <translation>Unten links</translation>
    </message>
    <message>
        <source>Left-top</source>
        <translation>Links oben</translation>
    </message>
    <message>
        <source>Right-top</source>
        <translation>Rechts oben</translation>
    </message>
    <message>
        <source>Right-bottom</source>
        <translation>Rechts unten</translation>
    </message>
    <message>
        <source>Left-bottom</source>
        <translation>Links unten</translation>
    </message>
    <message>
        <source>Camera</source>
        <translation>Kamera</translation>
    </message>
    <message>
        <source>Lens</source>
        <translation>Objektiv</translation>
    </message>
    <message>
        <source>Exposure</source>
        <translation>Belichtung</translation>
    </message>
    <message>
        <source>Aperture</source>
        <translation>Blende</translation>
    </message>
    <message>
        <source>ISO</source>
        <translation>ISO</translation>
    </message>
    <message>
        <source>Focal length</source>
        <translation>Brennweite</translation>
    </message>
    <message>
        <source>Taken</source>
        <translation>Aufgenommen</translation>
    </message>
    <message>
        <source>Orientation</source>
        <translation>Ausrichtung</translation>
    </message>
    <message>
        <source>Colour profile</source>
        <translation>Farbprofil</translation>
    </message>
    <message>
        <source>GPS position</source>
        <translation>GPS-Position</translation>
    </message>
</context>
<context>
    <name>print</name>
    <message>
        <source>the margins leave no room on the page</source>
        <translation>die Ränder lassen keinen Platz auf der Seite</translation>
    </message>
</context>
<context>
    <name>print::frmImprimir</name>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Printer:</source>
        <translation>Drucker:</translation>
    </message>
    <message>
        <source>Copies:</source>
        <translation>Exemplare:</translation>
    </message>
    <message>
        <source>Print:</source>
        <translation>Drucken:</translation>
    </message>
    <message>
        <source>&amp;Current image</source>
        <translation>&amp;Aktuelles Bild</translation>
    </message>
    <message>
        <source>&amp;All images of the folder</source>
        <translation>&amp;Alle Bilder des Ordners</translation>
    </message>
    <message>
        <source>Orientation:</source>
        <translation>Ausrichtung:</translation>
    </message>
    <message>
        <source>P&amp;ortrait</source>
        <translation>&amp;Hochformat</translation>
    </message>
    <message>
        <source>&amp;Landscape</source>
        <translation>&amp;Querformat</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Größe:</translation>
    </message>
    <message>
        <source>&amp;Fit to page</source>
        <translation>An Seite &amp;anpassen</translation>
    </message>
    <message>
        <source>O&amp;riginal size</source>
        <translation>O&amp;riginalgröße</translation>
    </message>
    <message>
        <source>Center &amp;horizontally</source>
        <translation>&amp;Horizontal zentrieren</translation>
    </message>
    <message>
        <source>Center &amp;vertically</source>
        <translation>&amp;Vertikal zentrieren</translation>
    </message>
    <message>
        <source>&amp;Margins...</source>
        <translation>&amp;Ränder...</translation>
    </message>
    <message>
        <source>Printer &amp;setup...</source>
        <translation>Drucker&amp;einrichtung...</translation>
    </message>
    <message>
        <source>Print to PDF</source>
        <translation>In PDF drucken</translation>
    </message>
</context>
<context>
    <name>print::frmMargen</name>
    <message>
        <source>Margins</source>
        <translation>Ränder</translation>
    </message>
    <message>
        <source>&amp;Left:</source>
        <translation>&amp;Links:</translation>
    </message>
    <message>
        <source>&amp;Right:</source>
        <translation>&amp;Rechts:</translation>
    </message>
    <message>
        <source>&amp;Top:</source>
        <translation>&amp;Oben:</translation>
    </message>
    <message>
        <source>&amp;Bottom:</source>
        <translation>&amp;Unten:</translation>
    </message>
    <message>
        <source>&amp;Inches</source>
        <translation>&amp;Zoll</translation>
    </message>
    <message>
        <source>&amp;Centimeters</source>
        <translation>&amp;Zentimeter</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Bad value</source>
        <translation>Ungültiger Wert</translation>
    </message>
</context>
<context>
    <name>shell</name>
    <message>
        <source>from colord</source>
        <translation>von colord</translation>
    </message>
    <message>
        <source>from the display</source>
        <translation>vom Bildschirm</translation>
    </message>
    <message>
        <source>the file chosen below</source>
        <translation>die unten gewählte Datei</translation>
    </message>
    <message>
        <source>sRGB: no profile from the display</source>
        <translation>sRGB: kein Profil vom Bildschirm</translation>
    </message>
    <message>
        <source>No supported desktop was found to set the wallpaper on</source>
        <translation>Es wurde kein unterstützter Desktop gefunden, auf dem das Hintergrundbild gesetzt werden kann</translation>
    </message>
</context>
<context>
    <name>shell::frmTiposArchivo</name>
    <message>
        <source>Associate File Types with Vistrel</source>
        <translation>Dateitypen mit Vistrel verknüpfen</translation>
    </message>
    <message>
        <source>Select the file types for which you want Vistrel to be the default viewer.</source>
        <translation>Wählen Sie die Dateitypen, für die Vistrel der Standardbetrachter sein soll.</translation>
    </message>
    <message>
        <source>&amp;File types:</source>
        <translation>&amp;Dateitypen:</translation>
    </message>
    <message>
        <source>Icon:</source>
        <translation>Symbol:</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Select None</source>
        <translation>Keine auswählen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>slideshow::frmSlideShow</name>
    <message>
        <source>Slide Show</source>
        <translation>Diashow</translation>
    </message>
    <message>
        <source>Folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>Images  </source>
        <translation>Bilder  </translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alle auswählen</translation>
    </message>
    <message>
        <source>Select None</source>
        <translation>Keine auswählen</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Auf</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Ab</translation>
    </message>
    <message>
        <source>Open...</source>
        <translation>Öffnen...</translation>
    </message>
    <message>
        <source>Save...</source>
        <translation>Speichern...</translation>
    </message>
    <message>
        <source>Options  </source>
        <translation>Optionen  </translation>
    </message>
    <message>
        <source>&amp;Random</source>
        <translation>&amp;Zufällig</translation>
    </message>
    <message>
        <source>R&amp;epeat</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Fit to window</source>
        <translation>An &amp;Fenster anpassen</translation>
    </message>
    <message>
        <source>&amp;Show file name</source>
        <translation>Datei&amp;namen anzeigen</translation>
    </message>
    <message>
        <source>&amp;Manual advance</source>
        <translation>&amp;Manuell weiter</translation>
    </message>
    <message>
        <source>&amp;Automatic advance</source>
        <translation>&amp;Automatisch weiter</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>Sekunden</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Folder: </source>
        <translation>Ordner: </translation>
    </message>
    <message>
        <source>(None)</source>
        <translation>(Keiner)</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Can&apos;t save file. A file name holds a line break or bytes that are not text, which a slide show list cannot hold</source>
        <translation>Datei kann nicht gespeichert werden. Ein Dateiname enthält einen Zeilenumbruch oder Bytes, die kein Text sind; eine Diashow-Liste kann ihn nicht aufnehmen</translation>
    </message>
    <message>
        <source>No images. You may:<byte value="xd"/>
1. Close this dialog and click &apos;File | Open Folder&apos; menu<byte value="xd"/>
or<byte value="xd"/>
2. Click &apos;Open...&apos; to open a slideshow file</source>
        <translation>Keine Bilder. Sie können:<byte value="xd"/>
1. Diesen Dialog schließen und im Menü &apos;Datei | Ordner öffnen&apos; klicken<byte value="xd"/>
oder<byte value="xd"/>
2. Auf &apos;Öffnen...&apos; klicken, um eine Diashow-Datei zu öffnen</translation>
    </message>
    <message>
        <source>No image selected</source>
        <translation>Kein Bild ausgewählt</translation>
    </message>
    <message>
        <source>Please enter a number between 0.1 and 9999.9 seconds</source>
        <translation>Bitte geben Sie eine Zahl zwischen 0,1 und 9999,9 Sekunden ein</translation>
    </message>
    <message>
        <source>Slide Show files (*.txt)</source>
        <translation>Diashow-Dateien (*.txt)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>slideshow::frmSlideShow2</name>
    <message>
        <source>Press [Esc] to exit</source>
        <translation>[Esc] zum Beenden drücken</translation>
    </message>
    <message>
        <source>Slide Show Manual</source>
        <translation>Diashow manuell</translation>
    </message>
    <message>
        <source>Slide Show Auto</source>
        <translation>Diashow automatisch</translation>
    </message>
    <message>
        <source>&amp;Previous   [Page Up]</source>
        <translation>&amp;Voriges   [Bild auf]</translation>
    </message>
    <message>
        <source>&amp;Next   [Page Down]</source>
        <translation>&amp;Nächstes   [Bild ab]</translation>
    </message>
    <message>
        <source>&amp;Exit   [Esc]</source>
        <translation>&amp;Beenden   [Esc]</translation>
    </message>
    <message>
        <source>&amp;Pause</source>
        <translation>&amp;Pause</translation>
    </message>
    <message>
        <source>&amp;Continue</source>
        <translation>&amp;Fortsetzen</translation>
    </message>
</context>
<context>
    <name>view</name>
    <message>
        <source>Please enter a value between %1% and %2%</source>
        <translation>Bitte geben Sie einen Wert zwischen %1 % und %2 % ein</translation>
    </message>
</context>
<context>
    <name>view::frmZoom</name>
    <message>
        <source>Zoom Functions</source>
        <translation>Zoomfunktionen</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>widgets</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>widgets::HelpWindow</name>
    <message>
        <source>Vistrel Help</source>
        <translation>Vistrel-Hilfe</translation>
    </message>
    <message>
        <source>&amp;Contents</source>
        <translation>&amp;Inhalt</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>&amp;Forward</source>
        <translation>&amp;Vorwärts</translation>
    </message>
</context>
<context>
    <name>widgets::frmTexto</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Go to Page</source>
        <translation>Gehe zu Seite</translation>
    </message>
    <message>
        <source>&amp;Page:</source>
        <translation>&amp;Seite:</translation>
    </message>
    <message>
        <source>Please enter a number between 1 and </source>
        <translation>Bitte geben Sie eine Zahl ein zwischen 1 und </translation>
    </message>
</context>
</TS>
