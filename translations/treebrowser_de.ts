<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CategoryMenu</name>
    <message>
        <source>&amp;Categories</source>
        <translation>&amp;Kategorien</translation>
    </message>
    <message>
        <source>Show &amp;All</source>
        <translation>&amp;Alle zeigen</translation>
    </message>
</context>
<context>
    <name>ContentRule</name>
    <message>
        <source>there is no such file</source>
        <translation>es gibt keine solche Datei</translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation>sie ist ein Verzeichnis</translation>
    </message>
    <message>
        <source>it is a device, not a file</source>
        <translation>sie ist ein Gerät und keine Datei</translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation>sie darf nicht gelesen werden</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>its content is none of STEP, IGES, BREP, MSH, Medit, VTK and Nastran</source>
        <translation>ihr Inhalt ist nichts von STEP, IGES, BREP, MSH, Medit, VTK und Nastran</translation>
    </message>
</context>
<context>
    <name>EditActions</name>
    <message>
        <source>New group</source>
        <translation>Neue Gruppe</translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation>&amp;Gruppe</translation>
    </message>
    <message>
        <source>&amp;Block</source>
        <translation>&amp;Block</translation>
    </message>
    <message>
        <source>&amp;Sideset</source>
        <translation>&amp;Seitenmenge</translation>
    </message>
    <message>
        <source>&amp;Nodeset</source>
        <translation>&amp;Knotenmenge</translation>
    </message>
    <message>
        <source>Si&amp;zing Source</source>
        <translation>Größen&amp;quelle</translation>
    </message>
    <message>
        <source>Boundary &amp;Layer</source>
        <translation>Grenzs&amp;chicht</translation>
    </message>
    <message>
        <source>&amp;Material</source>
        <translation>&amp;Werkstoff</translation>
    </message>
    <message>
        <source>Me&amp;dium</source>
        <translation>&amp;Medium</translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation>&amp;Löschen …</translation>
    </message>
    <message>
        <source>&amp;Copy as Text</source>
        <translation>Als Text &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation>&amp;Zeigen</translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation>&amp;Verbergen</translation>
    </message>
    <message>
        <source>Show &amp;Only These</source>
        <translation>&amp;Nur diese zeigen</translation>
    </message>
    <message>
        <source>Show as &amp;Before</source>
        <translation>Wie vor&amp;her zeigen</translation>
    </message>
    <message>
        <source>&amp;Apply Condition to These Sets</source>
        <translation>Randbedingung auf diese Mengen &amp;anwenden</translation>
    </message>
    <message>
        <source>Re&amp;fresh</source>
        <translation>Auf&amp;frischen</translation>
    </message>
    <message>
        <source>This row has no name of its own.</source>
        <translation>Diese Zeile hat keinen eigenen Namen.</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Delete %1?</source>
        <translation>%1 löschen?</translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation>Das lässt sich nicht rückgängig machen.</translation>
    </message>
    <message>
        <source>Select one boundary condition and the sets that it is to apply to.</source>
        <translation>Wählen Sie eine Randbedingung und die Mengen, für die sie gelten soll.</translation>
    </message>
</context>
<context>
    <name>FileActions</name>
    <message>
        <source>&amp;Mesh This Model…</source>
        <translation>Dieses Modell &amp;vernetzen …</translation>
    </message>
    <message>
        <source>&amp;Sets from Named Parts of Meshes</source>
        <translation>&amp;Mengen aus benannten Teilen von Netzen</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Öffnen …</translation>
    </message>
    <message>
        <source>&amp;Add File…</source>
        <translation>Datei &amp;hinzufügen …</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Mesh of %1</source>
        <translation>Netz von %1</translation>
    </message>
    <message>
        <source>Meshed %1</source>
        <translation>%1 ist vernetzt</translation>
    </message>
    <message>
        <source>Open a Model</source>
        <translation>Modell öffnen</translation>
    </message>
    <message>
        <source>Add a Model</source>
        <translation>Modell hinzufügen</translation>
    </message>
    <message>
        <source>Models and meshes (*.step *.stp *.iges *.igs *.brep *.msh *.mesh *.vtk *.bdf *.nas *.geo)</source>
        <translation>Modelle und Netze (*.step *.stp *.iges *.igs *.brep *.msh *.mesh *.vtk *.bdf *.nas *.geo)</translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>%1 is a script. Run it?</source>
        <translation>%1 ist ein Skript. Soll es laufen?</translation>
    </message>
    <message>
        <source>A script can do to your files whatever you can. Run it only if you know where it comes from.</source>
        <translation>Ein Skript kann mit Ihren Dateien alles tun, was auch Sie können. Lassen Sie es nur laufen, wenn Sie wissen, woher es kommt.</translation>
    </message>
    <message>
        <source>&amp;Run Script</source>
        <translation>&amp;Skript ausführen</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>%1 ist geöffnet</translation>
    </message>
    <message>
        <source>Some of %1 was left out or repaired.</source>
        <translation>Einiges aus %1 wurde ausgelassen oder ausgebessert.</translation>
    </message>
</context>
<context>
    <name>FileOpening</name>
    <message>
        <source>Cannot import &quot;%1&quot;: %2.</source>
        <translation>„%1“ lässt sich nicht einlesen: %2.</translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation>%L1 von %L2</translation>
    </message>
</context>
<context>
    <name>HelperJob</name>
    <message>
        <source>the file is probably damaged</source>
        <translation>die Datei ist wohl beschädigt</translation>
    </message>
    <message>
        <source>another element size may help</source>
        <translation>vielleicht hilft eine andere Elementgröße</translation>
    </message>
    <message>
        <source>Reading the file</source>
        <translation>Datei wird gelesen</translation>
    </message>
    <message>
        <source>Checking the data</source>
        <translation>Daten werden geprüft</translation>
    </message>
    <message>
        <source>Building the shapes</source>
        <translation>Formen werden aufgebaut</translation>
    </message>
    <message>
        <source>Collecting the entities</source>
        <translation>Objekte werden gesammelt</translation>
    </message>
    <message>
        <source>Handing over the model</source>
        <translation>Modell wird übergeben</translation>
    </message>
    <message>
        <source>Meshing the curves</source>
        <translation>Kurven werden vernetzt</translation>
    </message>
    <message>
        <source>Meshing the surfaces</source>
        <translation>Flächen werden vernetzt</translation>
    </message>
    <message>
        <source>Meshing the volumes</source>
        <translation>Volumen werden vernetzt</translation>
    </message>
    <message>
        <source>Raising the order of the elements</source>
        <translation>Ordnung der Elemente wird erhöht</translation>
    </message>
    <message>
        <source>the program %1, which reads such files, is missing</source>
        <translation>das Programm %1, das solche Dateien liest, fehlt</translation>
    </message>
    <message>
        <source>the program %1 does not start: %2</source>
        <translation>das Programm %1 startet nicht: %2</translation>
    </message>
    <message>
        <source>the program that reads it sent something unreadable</source>
        <translation>das Programm, das sie liest, hat Unlesbares gesendet</translation>
    </message>
    <message>
        <source>the program that reads it crashed at the stage &quot;%1&quot;; %2</source>
        <translation>das Programm, das sie liest, ist bei „%1“ abgestürzt; %2</translation>
    </message>
    <message>
        <source>the program that reads it hung at the stage &quot;%1&quot; and was ended after %2 s; %3</source>
        <translation>das Programm, das sie liest, hing bei „%1“ und wurde nach %2 s beendet; %3</translation>
    </message>
</context>
<context>
    <name>ImportJob</name>
    <message>
        <source>it is a script, which could run any program; import it as trusted (--trusted) only if you know where it comes from</source>
        <translation>sie ist ein Skript, das jedes Programm ausführen könnte; vertrauen Sie ihr (--trusted) nur, wenn Sie wissen, woher sie kommt</translation>
    </message>
    <message>
        <source>Cannot import &quot;%1&quot;: %2.</source>
        <translation>„%1“ lässt sich nicht einlesen: %2.</translation>
    </message>
    <message>
        <source>The import of &quot;%1&quot; was cancelled.</source>
        <translation>Das Einlesen von „%1“ wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>ItemKind</name>
    <message>
        <source>body</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>bodies</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>volumes</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>surface</source>
        <translation>Fläche</translation>
    </message>
    <message>
        <source>surfaces</source>
        <translation>Flächen</translation>
    </message>
    <message>
        <source>curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>curves</source>
        <translation>Kurven</translation>
    </message>
    <message>
        <source>vertex</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>vertices</source>
        <translation>Punkte</translation>
    </message>
    <message>
        <source>group</source>
        <translation>Gruppe</translation>
    </message>
    <message>
        <source>groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>sizing source</source>
        <translation>Größenquelle</translation>
    </message>
    <message>
        <source>sizing sources</source>
        <translation>Größenquellen</translation>
    </message>
    <message>
        <source>boundary layer</source>
        <translation>Grenzschicht</translation>
    </message>
    <message>
        <source>boundary layers</source>
        <translation>Grenzschichten</translation>
    </message>
    <message>
        <source>hex</source>
        <translation>Hexaeder-Anzahl</translation>
    </message>
    <message>
        <source>hex counts</source>
        <translation>Hexaeder-Anzahlen</translation>
    </message>
    <message>
        <source>tet</source>
        <translation>Tetraeder-Anzahl</translation>
    </message>
    <message>
        <source>tet counts</source>
        <translation>Tetraeder-Anzahlen</translation>
    </message>
    <message>
        <source>wedge</source>
        <translation>Keil-Anzahl</translation>
    </message>
    <message>
        <source>wedge counts</source>
        <translation>Keil-Anzahlen</translation>
    </message>
    <message>
        <source>pyramid</source>
        <translation>Pyramiden-Anzahl</translation>
    </message>
    <message>
        <source>pyramid counts</source>
        <translation>Pyramiden-Anzahlen</translation>
    </message>
    <message>
        <source>sphere</source>
        <translation>Kugel-Anzahl</translation>
    </message>
    <message>
        <source>sphere counts</source>
        <translation>Kugel-Anzahlen</translation>
    </message>
    <message>
        <source>tri</source>
        <translation>Dreieck-Anzahl</translation>
    </message>
    <message>
        <source>tri counts</source>
        <translation>Dreieck-Anzahlen</translation>
    </message>
    <message>
        <source>quad</source>
        <translation>Viereck-Anzahl</translation>
    </message>
    <message>
        <source>quad counts</source>
        <translation>Viereck-Anzahlen</translation>
    </message>
    <message>
        <source>edge</source>
        <translation>Kanten-Anzahl</translation>
    </message>
    <message>
        <source>edge counts</source>
        <translation>Kanten-Anzahlen</translation>
    </message>
    <message>
        <source>node</source>
        <translation>Knoten-Anzahl</translation>
    </message>
    <message>
        <source>node counts</source>
        <translation>Knoten-Anzahlen</translation>
    </message>
    <message>
        <source>block</source>
        <translation>Block</translation>
    </message>
    <message>
        <source>blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>sideset</source>
        <translation>Seitenmenge</translation>
    </message>
    <message>
        <source>sidesets</source>
        <translation>Seitenmengen</translation>
    </message>
    <message>
        <source>nodeset</source>
        <translation>Knotenmenge</translation>
    </message>
    <message>
        <source>nodesets</source>
        <translation>Knotenmengen</translation>
    </message>
    <message>
        <source>force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>forces</source>
        <translation>Kräfte</translation>
    </message>
    <message>
        <source>acceleration</source>
        <translation>Beschleunigung</translation>
    </message>
    <message>
        <source>accelerations</source>
        <translation>Beschleunigungen</translation>
    </message>
    <message>
        <source>velocity</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>velocities</source>
        <translation>Geschwindigkeiten</translation>
    </message>
    <message>
        <source>pressure</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>pressures</source>
        <translation>Drücke</translation>
    </message>
    <message>
        <source>temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>temperatures</source>
        <translation>Temperaturen</translation>
    </message>
    <message>
        <source>displacement</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>displacements</source>
        <translation>Verschiebungen</translation>
    </message>
    <message>
        <source>constraint</source>
        <translation>Zwangsbedingung</translation>
    </message>
    <message>
        <source>constraints</source>
        <translation>Zwangsbedingungen</translation>
    </message>
    <message>
        <source>convection</source>
        <translation>Konvektion</translation>
    </message>
    <message>
        <source>convections</source>
        <translation>Konvektionen</translation>
    </message>
    <message>
        <source>heatflux</source>
        <translation>Wärmestrom</translation>
    </message>
    <message>
        <source>heat fluxes</source>
        <translation>Wärmeströme</translation>
    </message>
    <message>
        <source>contact region</source>
        <translation>Kontaktbereich</translation>
    </message>
    <message>
        <source>contact regions</source>
        <translation>Kontaktbereiche</translation>
    </message>
    <message>
        <source>contact pair</source>
        <translation>Kontaktpaar</translation>
    </message>
    <message>
        <source>contact pairs</source>
        <translation>Kontaktpaare</translation>
    </message>
    <message>
        <source>axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>axes</source>
        <translation>Achsen</translation>
    </message>
    <message>
        <source>exhaustfan</source>
        <translation>Abluftventilator</translation>
    </message>
    <message>
        <source>exhaust fans</source>
        <translation>Abluftventilatoren</translation>
    </message>
    <message>
        <source>fan</source>
        <translation>Ventilator</translation>
    </message>
    <message>
        <source>fans</source>
        <translation>Ventilatoren</translation>
    </message>
    <message>
        <source>inletvent</source>
        <translation>Zuluftöffnung</translation>
    </message>
    <message>
        <source>inlet vents</source>
        <translation>Zuluftöffnungen</translation>
    </message>
    <message>
        <source>intakefan</source>
        <translation>Zuluftventilator</translation>
    </message>
    <message>
        <source>intake fans</source>
        <translation>Zuluftventilatoren</translation>
    </message>
    <message>
        <source>interface</source>
        <translation>Grenzfläche</translation>
    </message>
    <message>
        <source>interfaces</source>
        <translation>Grenzflächen</translation>
    </message>
    <message>
        <source>interior</source>
        <translation>Inneres</translation>
    </message>
    <message>
        <source>interiors</source>
        <translation>Inneres</translation>
    </message>
    <message>
        <source>massflowinlet</source>
        <translation>Massenstromeinlass</translation>
    </message>
    <message>
        <source>mass flow inlets</source>
        <translation>Massenstromeinlässe</translation>
    </message>
    <message>
        <source>outflow</source>
        <translation>Ausströmung</translation>
    </message>
    <message>
        <source>outflows</source>
        <translation>Ausströmungen</translation>
    </message>
    <message>
        <source>outletvent</source>
        <translation>Abluftöffnung</translation>
    </message>
    <message>
        <source>outlet vents</source>
        <translation>Abluftöffnungen</translation>
    </message>
    <message>
        <source>periodic</source>
        <translation>Periodische Randbedingung</translation>
    </message>
    <message>
        <source>periodics</source>
        <translation>Periodische Randbedingungen</translation>
    </message>
    <message>
        <source>periodicshadow</source>
        <translation>Periodisches Gegenstück</translation>
    </message>
    <message>
        <source>periodic shadows</source>
        <translation>Periodische Gegenstücke</translation>
    </message>
    <message>
        <source>porousjump</source>
        <translation>Poröser Sprung</translation>
    </message>
    <message>
        <source>porous jumps</source>
        <translation>Poröse Sprünge</translation>
    </message>
    <message>
        <source>pressurefarfield</source>
        <translation>Druckfernfeld</translation>
    </message>
    <message>
        <source>pressure far fields</source>
        <translation>Druckfernfelder</translation>
    </message>
    <message>
        <source>pressureinlet</source>
        <translation>Druckeinlass</translation>
    </message>
    <message>
        <source>pressure inlets</source>
        <translation>Druckeinlässe</translation>
    </message>
    <message>
        <source>pressureoutlet</source>
        <translation>Druckauslass</translation>
    </message>
    <message>
        <source>pressure outlets</source>
        <translation>Druckauslässe</translation>
    </message>
    <message>
        <source>radiator</source>
        <translation>Radiator</translation>
    </message>
    <message>
        <source>radiators</source>
        <translation>Radiatoren</translation>
    </message>
    <message>
        <source>supersonicinflow</source>
        <translation>Überschalleinströmung</translation>
    </message>
    <message>
        <source>supersonic inflows</source>
        <translation>Überschalleinströmungen</translation>
    </message>
    <message>
        <source>supersonicoutflow</source>
        <translation>Überschallausströmung</translation>
    </message>
    <message>
        <source>supersonic outflows</source>
        <translation>Überschallausströmungen</translation>
    </message>
    <message>
        <source>symmetry</source>
        <translation>Symmetrie</translation>
    </message>
    <message>
        <source>symmetries</source>
        <translation>Symmetrien</translation>
    </message>
    <message>
        <source>velocityinlet</source>
        <translation>Geschwindigkeitseinlass</translation>
    </message>
    <message>
        <source>velocity inlets</source>
        <translation>Geschwindigkeitseinlässe</translation>
    </message>
    <message>
        <source>wall</source>
        <translation>Wand</translation>
    </message>
    <message>
        <source>walls</source>
        <translation>Wände</translation>
    </message>
    <message>
        <source>material</source>
        <translation>Werkstoff</translation>
    </message>
    <message>
        <source>materials</source>
        <translation>Werkstoffe</translation>
    </message>
    <message>
        <source>media</source>
        <translation>Medien</translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation>Geometrie</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>Blocks</source>
        <translation>Blöcke</translation>
    </message>
    <message>
        <source>Sidesets</source>
        <translation>Seitenmengen</translation>
    </message>
    <message>
        <source>Nodesets</source>
        <translation>Knotenmengen</translation>
    </message>
    <message>
        <source>FEA boundary conditions</source>
        <translation>FEM-Randbedingungen</translation>
    </message>
    <message>
        <source>CFD boundary conditions</source>
        <translation>Strömungsrandbedingungen</translation>
    </message>
    <message>
        <source>Materials</source>
        <translation>Werkstoffe</translation>
    </message>
    <message>
        <source>Media</source>
        <translation>Medien</translation>
    </message>
</context>
<context>
    <name>KernelEditor</name>
    <message>
        <source>Of this kind nothing has a name of its own: %1.</source>
        <translation>Von dieser Art hat nichts einen eigenen Namen: %1.</translation>
    </message>
    <message>
        <source>This cannot be shown or hidden: %1.</source>
        <translation>Das lässt sich weder zeigen noch verbergen: %1.</translation>
    </message>
    <message>
        <source>Only geometry and groups can be members, and not %1.</source>
        <translation>Nur Geometrie und Gruppen können Mitglieder sein, und nicht %1.</translation>
    </message>
    <message>
        <source>This is no boundary condition: %1.</source>
        <translation>Das ist keine Randbedingung: %1.</translation>
    </message>
    <message>
        <source>A boundary condition applies to sidesets and nodesets, and not to %1.</source>
        <translation>Eine Randbedingung gilt für Seiten- und Knotenmengen, und nicht für %1.</translation>
    </message>
    <message>
        <source>This row has no name of its own.</source>
        <translation>Diese Zeile hat keinen eigenen Namen.</translation>
    </message>
    <message>
        <source>A name is one line of text.</source>
        <translation>Ein Name ist eine Zeile Text.</translation>
    </message>
    <message>
        <source>Nothing is selected that could be shown alone.</source>
        <translation>Nichts ist ausgewählt, was sich allein zeigen ließe.</translation>
    </message>
    <message>
        <source>All is shown and hidden as it was.</source>
        <translation>Alles ist gezeigt und verborgen, wie es war.</translation>
    </message>
    <message>
        <source>This row is no boundary condition.</source>
        <translation>Diese Zeile ist keine Randbedingung.</translation>
    </message>
</context>
<context>
    <name>KernelSession</name>
    <message>
        <source>The model holds nothing to select by &quot;%1&quot;.</source>
        <translation>Im Modell gibt es nichts, was sich mit „%1“ auswählen ließe.</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Signal Monitor</source>
        <translation>Signalmonitor</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
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
        <source>&amp;Create</source>
        <translation>&amp;Erzeugen</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Fo&amp;llow Selection</source>
        <translation>Der Auswahl &amp;folgen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About treebrowser</source>
        <translation>&amp;Über treebrowser</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Selected: %1</source>
        <translation>Ausgewählt: %1</translation>
    </message>
    <message>
        <source>About treebrowser</source>
        <translation>Über treebrowser</translation>
    </message>
    <message>
        <source>treebrowser %1</source>
        <translation>treebrowser %1</translation>
    </message>
    <message>
        <source>Shows what a geometry kernel holds as a live tree.</source>
        <translation>Zeigt als lebenden Baum, was ein Geometriekern enthält.</translation>
    </message>
</context>
<context>
    <name>MeshDialog</name>
    <message>
        <source>Mesh This Model</source>
        <translation>Dieses Modell vernetzen</translation>
    </message>
    <message>
        <source>&amp;Mesh</source>
        <translation>&amp;Vernetzen</translation>
    </message>
    <message>
        <source>Element &amp;size, in units of the model:</source>
        <translation>&amp;Größe der Elemente, in Einheiten des Modells:</translation>
    </message>
    <message>
        <source>Element &amp;order:</source>
        <translation>&amp;Ordnung der Elemente:</translation>
    </message>
</context>
<context>
    <name>MeshJob</name>
    <message>
        <source>the size of the elements must be above 0</source>
        <translation>die Größe der Elemente muss über 0 liegen</translation>
    </message>
    <message>
        <source>the order of the elements must be from 1 to %1</source>
        <translation>die Ordnung der Elemente muss zwischen 1 und %1 liegen</translation>
    </message>
    <message>
        <source>it is not a CAD file</source>
        <translation>sie ist keine CAD-Datei</translation>
    </message>
    <message>
        <source>Cannot mesh &quot;%1&quot;: %2.</source>
        <translation>„%1“ lässt sich nicht vernetzen: %2.</translation>
    </message>
    <message>
        <source>The meshing of &quot;%1&quot; was cancelled.</source>
        <translation>Das Vernetzen von „%1“ wurde abgebrochen.</translation>
    </message>
</context>
<context>
    <name>MirrorRows</name>
    <message>
        <source>%1 (%2)</source>
        <translation>%1 (%2)</translation>
    </message>
</context>
<context>
    <name>ProgressStrip</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
<context>
    <name>PropertiesView</name>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>Eigenschaft</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Properties of the selection</source>
        <translation>Eigenschaften der Auswahl</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>No files yet</source>
        <translation>Noch keine Dateien</translation>
    </message>
    <message>
        <source>Forget These Files</source>
        <translation>Diese Dateien vergessen</translation>
    </message>
</context>
<context>
    <name>RecordProperties</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Elements</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Visible</source>
        <translation>Sichtbar</translation>
    </message>
    <message>
        <source>yes</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>Flags</source>
        <translation>Merkmale</translation>
    </message>
    <message>
        <source>Groups</source>
        <translation>Gruppen</translation>
    </message>
    <message>
        <source>virtual</source>
        <translation>virtuell</translation>
    </message>
    <message>
        <source>sheet body</source>
        <translation>Flächenkörper</translation>
    </message>
    <message>
        <source>several volumes</source>
        <translation>mehrere Volumen</translation>
    </message>
    <message>
        <source>lite</source>
        <translation>lite</translation>
    </message>
    <message>
        <source>Parents</source>
        <translation>Übergeordnet</translation>
    </message>
    <message>
        <source>Children</source>
        <translation>Untergeordnet</translation>
    </message>
    <message>
        <source>Conditions</source>
        <translation>Randbedingungen</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
</context>
<context>
    <name>Screenshot</name>
    <message>
        <source>Cannot write the picture &quot;%1&quot;: %2.</source>
        <translation>Das Bild „%1“ lässt sich nicht schreiben: %2.</translation>
    </message>
</context>
<context>
    <name>SignalLog</name>
    <message>
        <source>Time / ms</source>
        <translation>Zeit / ms</translation>
    </message>
    <message>
        <source>Sender</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Signal</source>
        <translation>Signal</translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation>Argumente</translation>
    </message>
</context>
<context>
    <name>SignalMonitor</name>
    <message>
        <source>Signal name</source>
        <translation>Name des Signals</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>%1 signals</source>
        <translation>%1 Signale</translation>
    </message>
</context>
<context>
    <name>SignalTap</name>
    <message>
        <source>%1 records</source>
        <translation>%1 Datensätze</translation>
    </message>
</context>
<context>
    <name>TreeMenu</name>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Hide Category</source>
        <translation>Kategorie &amp;verbergen</translation>
    </message>
</context>
<context>
    <name>TreePane</name>
    <message>
        <source>&amp;Find	Ctrl+F</source>
        <translation>&amp;Suchen	Strg+F</translation>
    </message>
    <message>
        <source>&amp;Expand Branch</source>
        <translation>Zweig &amp;ausklappen</translation>
    </message>
    <message>
        <source>C&amp;ollapse Branch</source>
        <translation>Zweig &amp;einklappen</translation>
    </message>
    <message>
        <source>&amp;Go to Selection</source>
        <translation>Zur Aus&amp;wahl gehen</translation>
    </message>
    <message>
        <source>No name contains &quot;%1&quot;.</source>
        <translation>Kein Name enthält „%1“.</translation>
    </message>
    <message>
        <source>Open a file with Ctrl+O, or drop one here.</source>
        <translation>Öffnen Sie eine Datei mit Strg+O, oder ziehen Sie eine hierher.</translation>
    </message>
</context>
<context>
    <name>WindowRun</name>
    <message>
        <source>There is no display to open a window on; give --print or --screenshot.</source>
        <translation>Es gibt keine Anzeige für ein Fenster; geben Sie --print oder --screenshot an.</translation>
    </message>
</context>
</TS>
