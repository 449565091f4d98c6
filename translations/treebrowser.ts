<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en">
<context>
    <name>CategoryMenu</name>
    <message>
        <source>&amp;Categories</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;All</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ContentRule</name>
    <message>
        <source>there is no such file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is a directory</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is a device, not a file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it may not be read</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>its content is none of STEP, IGES, BREP, MSH, Medit, VTK and Nastran</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>EditActions</name>
    <message>
        <source>New group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Block</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sideset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Nodeset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si&amp;zing Source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Boundary &amp;Layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Me&amp;dium</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Rename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Delete…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Copy as Text</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Show</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Hide</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show &amp;Only These</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Show as &amp;Before</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Apply Condition to These Sets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Re&amp;fresh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This row has no name of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete %1?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This cannot be undone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Select one boundary condition and the sets that it is to apply to.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileActions</name>
    <message>
        <source>&amp;Mesh This Model…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Sets from Named Parts of Meshes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Add File…</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mesh of %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Meshed %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a Model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add a Model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Models and meshes (*.step *.stp *.iges *.igs *.brep *.msh *.mesh *.vtk *.bdf *.nas *.geo)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All files (*)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 is a script. Run it?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A script can do to your files whatever you can. Run it only if you know where it comes from.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Run Script</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Some of %1 was left out or repaired.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileOpening</name>
    <message>
        <source>Cannot import &quot;%1&quot;: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FilterBar</name>
    <message>
        <source>Filter</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%L1 of %L2</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelperJob</name>
    <message>
        <source>the file is probably damaged</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>another element size may help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Reading the file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Checking the data</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Building the shapes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Collecting the entities</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Handing over the model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Meshing the curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Meshing the surfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Meshing the volumes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Raising the order of the elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the program %1, which reads such files, is missing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the program %1 does not start: %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the program that reads it sent something unreadable</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the program that reads it crashed at the stage &quot;%1&quot;; %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the program that reads it hung at the stage &quot;%1&quot; and was ended after %2 s; %3</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ImportJob</name>
    <message>
        <source>it is a script, which could run any program; import it as trusted (--trusted) only if you know where it comes from</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot import &quot;%1&quot;: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The import of &quot;%1&quot; was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ItemKind</name>
    <message>
        <source>body</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>bodies</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>volume</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>volumes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>surface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>surfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>curve</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>curves</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>vertex</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>vertices</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>group</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sizing source</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sizing sources</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>boundary layer</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>boundary layers</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hex</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>hex counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tet counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>wedge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>wedge counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pyramid</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pyramid counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sphere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sphere counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tri</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>tri counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>quad</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>quad counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>edge</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>edge counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>node counts</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>block</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>blocks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sideset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sidesets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nodeset</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>nodesets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>force</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>forces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>acceleration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>accelerations</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>velocity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>velocities</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>temperatures</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>displacement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>displacements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>constraint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>constraints</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>convection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>convections</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>heatflux</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>heat fluxes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>contact region</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>contact regions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>contact pair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>contact pairs</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>axis</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>axes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>exhaustfan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>exhaust fans</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>fans</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>inletvent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>inlet vents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>intakefan</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>intake fans</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>interface</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>interfaces</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>interior</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>interiors</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>massflowinlet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mass flow inlets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>outflow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>outflows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>outletvent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>outlet vents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>periodic</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>periodics</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>periodicshadow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>periodic shadows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>porousjump</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>porous jumps</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressurefarfield</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressure far fields</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressureinlet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressure inlets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressureoutlet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>pressure outlets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>radiator</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>radiators</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>supersonicinflow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>supersonic inflows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>supersonicoutflow</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>supersonic outflows</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>symmetry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>symmetries</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>velocityinlet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>velocity inlets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>wall</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>walls</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>material</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>materials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>media</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Geometry</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Blocks</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sidesets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodesets</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FEA boundary conditions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CFD boundary conditions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Materials</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Media</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KernelEditor</name>
    <message>
        <source>Of this kind nothing has a name of its own: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This cannot be shown or hidden: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Only geometry and groups can be members, and not %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This is no boundary condition: %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A boundary condition applies to sidesets and nodesets, and not to %1.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This row has no name of its own.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>A name is one line of text.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nothing is selected that could be shown alone.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>All is shown and hidden as it was.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>This row is no boundary condition.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>KernelSession</name>
    <message>
        <source>The model holds nothing to select by &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Signal Monitor</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Create</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Fo&amp;llow Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;About treebrowser</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tools</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Selected: %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>About treebrowser</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>treebrowser %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Shows what a geometry kernel holds as a live tree.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MeshDialog</name>
    <message>
        <source>Mesh This Model</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Mesh</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Element &amp;size, in units of the model:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Element &amp;order:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MeshJob</name>
    <message>
        <source>the size of the elements must be above 0</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>the order of the elements must be from 1 to %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>it is not a CAD file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cannot mesh &quot;%1&quot;: %2.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>The meshing of &quot;%1&quot; was cancelled.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MirrorRows</name>
    <message>
        <source>%1 (%2)</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProgressStrip</name>
    <message>
        <source>Cancel</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>PropertiesView</name>
    <message>
        <source>Properties</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Property</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Value</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Properties of the selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>No files yet</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Forget These Files</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>RecordProperties</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kind</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Id</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Visible</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>yes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>no</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Flags</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Groups</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>virtual</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>sheet body</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>several volumes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>lite</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Parents</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Children</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Conditions</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Screenshot</name>
    <message>
        <source>Cannot write the picture &quot;%1&quot;: %2.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SignalLog</name>
    <message>
        <source>Time / ms</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sender</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Signal</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Arguments</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SignalMonitor</name>
    <message>
        <source>Signal name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pause</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Clear</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 signals</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SignalTap</name>
    <message>
        <source>%1 records</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeMenu</name>
    <message>
        <source>&amp;New</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Hide Category</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreePane</name>
    <message>
        <source>&amp;Find	Ctrl+F</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Expand Branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>C&amp;ollapse Branch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>&amp;Go to Selection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No name contains &quot;%1&quot;.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Open a file with Ctrl+O, or drop one here.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>WindowRun</name>
    <message>
        <source>There is no display to open a window on; give --print or --screenshot.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
