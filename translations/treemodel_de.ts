<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>EntityModel</name>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Id</source>
        <translation>Nr.</translation>
    </message>
</context>
<context>
    <name>TreeBoundaryLayerData</name>
    <message>
        <source>Boundary Layer</source>
        <translation>Grenzschicht</translation>
    </message>
</context>
<context>
    <name>TreeCfdBCData</name>
    <message>
        <source>cfd_bc</source>
        <translation>Strömungsrandbedingung</translation>
    </message>
</context>
<context>
    <name>TreeData</name>
    <message>
        <source>Entity %1</source>
        <translation>Objekt %1</translation>
    </message>
</context>
<context>
    <name>TreeExodusData</name>
    <message>
        <source>Block %1</source>
        <translation>Block %1</translation>
    </message>
    <message>
        <source>Sideset %1</source>
        <translation>Seitenmenge %1</translation>
    </message>
    <message>
        <source>Nodeset %1</source>
        <translation>Knotenmenge %1</translation>
    </message>
    <message>
        <source>Exodus %1</source>
        <translation>Menge %1</translation>
    </message>
</context>
<context>
    <name>TreeFeaBCData</name>
    <message>
        <source>Force</source>
        <translation>Kraft</translation>
    </message>
    <message>
        <source>Acceleration</source>
        <translation>Beschleunigung</translation>
    </message>
    <message>
        <source>Velocity</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Druck</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Displacement</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Constraint</source>
        <translation>Zwangsbedingung</translation>
    </message>
    <message>
        <source>Convection</source>
        <translation>Konvektion</translation>
    </message>
    <message>
        <source>HeatFlux</source>
        <translation>Wärmestrom</translation>
    </message>
    <message>
        <source>Contact Region</source>
        <translation>Kontaktbereich</translation>
    </message>
    <message>
        <source>Contact Pair</source>
        <translation>Kontaktpaar</translation>
    </message>
    <message>
        <source>FEA BC</source>
        <translation>Randbedingung</translation>
    </message>
</context>
<context>
    <name>TreeGeometryData</name>
    <message>
        <source>Vertex </source>
        <translation>Punkt </translation>
    </message>
    <message>
        <source>Curve </source>
        <translation>Kurve </translation>
    </message>
    <message>
        <source>Surface </source>
        <translation>Fläche </translation>
    </message>
    <message>
        <source>Volume </source>
        <translation>Volumen </translation>
    </message>
    <message>
        <source>Body </source>
        <translation>Körper </translation>
    </message>
    <message>
        <source>Geometry </source>
        <translation>Geometrie </translation>
    </message>
</context>
<context>
    <name>TreeMaterialData</name>
    <message>
        <source>Media</source>
        <translation>Medium</translation>
    </message>
    <message>
        <source>Material</source>
        <translation>Werkstoff</translation>
    </message>
</context>
<context>
    <name>TreeMeshData</name>
    <message>
        <source>%1 hex elements</source>
        <translation>%1 Hexaeder</translation>
    </message>
    <message>
        <source>1 hex element</source>
        <translation>1 Hexaeder</translation>
    </message>
    <message>
        <source>%1 tet elements</source>
        <translation>%1 Tetraeder</translation>
    </message>
    <message>
        <source>1 tet element</source>
        <translation>1 Tetraeder</translation>
    </message>
    <message>
        <source>%1 wedge elements</source>
        <translation>%1 Keile</translation>
    </message>
    <message>
        <source>1 wedge element</source>
        <translation>1 Keil</translation>
    </message>
    <message>
        <source>%1 pyramid elements</source>
        <translation>%1 Pyramiden</translation>
    </message>
    <message>
        <source>1 pyramid element</source>
        <translation>1 Pyramide</translation>
    </message>
    <message>
        <source>%1 sphere elements</source>
        <translation>%1 Kugeln</translation>
    </message>
    <message>
        <source>1 sphere element</source>
        <translation>1 Kugel</translation>
    </message>
    <message>
        <source>%1 tri elements</source>
        <translation>%1 Dreiecke</translation>
    </message>
    <message>
        <source>1 tri element</source>
        <translation>1 Dreieck</translation>
    </message>
    <message>
        <source>%1 quad elements</source>
        <translation>%1 Vierecke</translation>
    </message>
    <message>
        <source>1 quad element</source>
        <translation>1 Viereck</translation>
    </message>
    <message>
        <source>%1 edge elements</source>
        <translation>%1 Kanten</translation>
    </message>
    <message>
        <source>1 edge element</source>
        <translation>1 Kante</translation>
    </message>
    <message>
        <source>%1 nodes</source>
        <translation>%1 Knoten</translation>
    </message>
    <message>
        <source>1 node</source>
        <translation>1 Knoten</translation>
    </message>
    <message>
        <source>%1 mesh elements</source>
        <translation>%1 Elemente</translation>
    </message>
    <message>
        <source>1 mesh element</source>
        <translation>1 Element</translation>
    </message>
</context>
<context>
    <name>TreeSizingSourceData</name>
    <message>
        <source>Sizing Source </source>
        <translation>Größenquelle </translation>
    </message>
</context>
</TS>
