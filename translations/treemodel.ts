<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" sourcelanguage="en">
<context>
    <name>EntityModel</name>
    <message>
        <source>Name</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Id</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeBoundaryLayerData</name>
    <message>
        <source>Boundary Layer</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeCfdBCData</name>
    <message>
        <source>cfd_bc</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeData</name>
    <message>
        <source>Entity %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeExodusData</name>
    <message>
        <source>Block %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sideset %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Nodeset %1</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exodus %1</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeFeaBCData</name>
    <message>
        <source>Force</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Acceleration</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Velocity</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Displacement</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Constraint</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Convection</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>HeatFlux</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contact Region</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Contact Pair</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>FEA BC</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeGeometryData</name>
    <message>
        <source>Vertex </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Curve </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Surface </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Volume </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Body </source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Geometry </source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeMaterialData</name>
    <message>
        <source>Media</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Material</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeMeshData</name>
    <message>
        <source>%1 hex elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 hex element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tet elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 tet element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 wedge elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 wedge element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 pyramid elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 pyramid element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 sphere elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 sphere element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 tri elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 tri element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 quad elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 quad element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 edge elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 edge element</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 nodes</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 node</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 mesh elements</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>1 mesh element</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>TreeSizingSourceData</name>
    <message>
        <source>Sizing Source </source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
