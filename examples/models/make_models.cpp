// Makes the example models: each one a shape of its own kind for a model tree.

#include <APIHeaderSection_MakeHeader.hxx>
#include <BRep_Builder.hxx>
#include <BRepAlgoAPI_BuilderAlgo.hxx>
#include <BRepAlgoAPI_Cut.hxx>
#include <BRepBuilderAPI_MakeEdge.hxx>
#include <BRepBuilderAPI_MakeFace.hxx>
#include <BRepBuilderAPI_MakeVertex.hxx>
#include <BRepBuilderAPI_Sewing.hxx>
#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepTools.hxx>
#include <cstdlib>
#include <filesystem>
#include <GC_MakeArcOfCircle.hxx>
#include <Geom_CylindricalSurface.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESControl_Writer.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <iostream>
#include <stdexcept>
#include <STEPCAFControl_Writer.hxx>
#include <StepData_StepModel.hxx>
#include <string>
#include <TCollection_HAsciiString.hxx>
#include <TDataStd_Name.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

namespace {

// The same in every run, so that a model changes only where its making does.
constexpr const char* step_date = "2026-01-01T00:00:00";
constexpr const char* iges_date = "20260101.000000";

TopLoc_Location moved_by(double x, double y, double z)
{
    gp_Trsf move;
    move.SetTranslation({x, y, z});
    return {move};
}

TopLoc_Location turned(const gp_Dir& axis, double angle, const TopLoc_Location& then)
{
    gp_Trsf turn;
    turn.SetRotation({gp::Origin(), axis}, angle);
    return then * TopLoc_Location(turn);
}

TopoDS_Shape cylinder(const gp_Pnt& base, const gp_Dir& axis, double radius, double height)
{
    return BRepPrimAPI_MakeCylinder(gp_Ax2(base, axis), radius, height).Shape();
}

TopoDS_Compound compound_of(std::initializer_list<TopoDS_Shape> shapes)
{
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (const auto& shape : shapes) {
        builder.Add(compound, shape);
    }
    return compound;
}

// A document of named products and named instances of them.
class Assembler
{
public:
    Assembler()
    {
        XCAFApp_Application::GetApplication()->NewDocument("MDTV-XCAF", m_document);
        m_shapes = XCAFDoc_DocumentTool::ShapeTool(m_document->Main());
        XCAFDoc_ShapeTool::SetAutoNaming(false);
    }

    TDF_Label part(const char* name, const TopoDS_Shape& shape) const
    {
        const auto label = m_shapes->AddShape(shape, false);
        return named(label, name);
    }

    TDF_Label assembly(const char* name) const { return named(m_shapes->NewShape(), name); }

    void place(const TDF_Label& assembly, const char* name, const TDF_Label& product,
        const TopLoc_Location& place) const
    {
        named(m_shapes->AddComponent(assembly, product, place), name);
    }

    void write_step(const std::filesystem::path& file) const
    {
        m_shapes->UpdateAssemblies();
        STEPCAFControl_Writer writer;
        if (!writer.Transfer(m_document, STEPControl_AsIs)) {
            throw std::runtime_error("cannot make the STEP model of " + file.string());
        }
        APIHeaderSection_MakeHeader header(writer.ChangeWriter().Model());
        header.SetName(new TCollection_HAsciiString(file.filename().c_str()));
        header.SetTimeStamp(new TCollection_HAsciiString(step_date));
        header.Apply(writer.ChangeWriter().Model());
        if (writer.Write(file.c_str()) != IFSelect_RetDone) {
            throw std::runtime_error("cannot write " + file.string());
        }
    }

private:
    static TDF_Label named(const TDF_Label& label, const char* name)
    {
        TDataStd_Name::Set(label, TCollection_ExtendedString(name, true));
        return label;
    }

    Handle(TDocStd_Document) m_document;
    Handle(XCAFDoc_ShapeTool) m_shapes;
};

TDF_Label make_flange(const Assembler& assembler, const TDF_Label& bolt)
{
    auto disc = cylinder(gp::Origin(), gp::DZ(), 50, 10);
    disc = BRepAlgoAPI_Cut(disc, cylinder(gp::Origin(), gp::DZ(), 20, 10)).Shape();

    const auto flange = assembler.assembly("Flange");
    assembler.place(flange, "Disc", assembler.part("Disc DN40", disc), {});
    for (int i = 0; i < 4; ++i) {
        const auto name = "Bolt " + std::to_string(i + 1);
        assembler.place(
            flange, name.c_str(), bolt, turned(gp::DZ(), i * M_PI / 2, {}) * moved_by(40, 0, 0));
    }
    return flange;
}

TDF_Label make_pump(const Assembler& assembler, const TDF_Label& flange)
{
    auto casing = BRepPrimAPI_MakeBox(gp_Pnt(-60, -60, -60), 120, 120, 120).Shape();
    casing = BRepAlgoAPI_Cut(casing, cylinder({-60, 0, 0}, gp::DX(), 40, 120)).Shape();

    const auto pump = assembler.assembly("Pump");
    assembler.place(pump, "Geh\u00e4use", assembler.part("Casing", casing), {});
    assembler.place(pump, "Shaft \u00d830",
        assembler.part("Shaft", cylinder({-90, 0, 0}, gp::DX(), 15, 180)), {});
    assembler.place(pump, "Inlet", flange, turned(gp::DY(), -M_PI / 2, moved_by(-60, 0, 0)));
    assembler.place(pump, "Outlet", flange, turned(gp::DY(), M_PI / 2, moved_by(60, 0, 0)));
    return pump;
}

// An assembly three levels deep, whose products are used again and again.
void make_pump_station(const std::filesystem::path& folder)
{
    const Assembler assembler;
    const auto bolt = assembler.part("Bolt M8", cylinder({0, 0, -10}, gp::DZ(), 4, 30));
    const auto pump = make_pump(assembler, make_flange(assembler, bolt));

    const auto station = assembler.assembly("Pump station");
    const auto plate = BRepPrimAPI_MakeBox(gp_Pnt(-150, -150, -80), 300, 600, 20).Shape();
    assembler.place(station, "Base plate", assembler.part("Plate 600x300", plate), {});
    assembler.place(station, "Duty pump", pump, {});
    assembler.place(station, "Standby pump", pump, moved_by(0, 300, 0));
    assembler.write_step(folder / "pump_station.step");
}

// Three layers of ground around a pile: one body of six volumes that share the faces
// between them.
void make_pile(const std::filesystem::path& folder)
{
    TopTools_ListOfShape solids;
    for (int layer = 0; layer < 3; ++layer) {
        solids.Append(BRepPrimAPI_MakeBox(gp_Pnt(-10, -10, -5.0 * layer - 5), 20, 20, 5).Shape());
    }
    solids.Append(cylinder({0, 0, -15}, gp::DZ(), 2, 15));
    BRepAlgoAPI_BuilderAlgo fuse;
    fuse.SetArguments(solids);
    fuse.Build();
    const auto file = (folder / "pile.brep").string();
    if (fuse.HasErrors() || !BRepTools::Write(compound_of({fuse.Shape()}), file.c_str())) {
        throw std::runtime_error("cannot make " + file);
    }
}

// A roof of two vaults with a common edge, two free curves and a free point.
void make_roof(const std::filesystem::path& folder)
{
    BRepBuilderAPI_Sewing sewing(1e-6);
    for (const double x : {0.0, 10.0}) {
        const gp_Ax3 axes({x, 0, 0}, gp::DY(), gp::DX());
        sewing.Add(
            BRepBuilderAPI_MakeFace(new Geom_CylindricalSurface(axes, 5), -M_PI, 0, 0, 20, 1e-6));
    }
    sewing.Perform();

    const auto gutter = BRepBuilderAPI_MakeEdge(gp_Pnt(-5, 0, -4), gp_Pnt(-5, 20, -4)).Shape();
    const auto bow = GC_MakeArcOfCircle(gp_Pnt(-5, 0, -4), gp_Pnt(5, 0, -6), gp_Pnt(15, 0, -4));
    const auto arch = BRepBuilderAPI_MakeEdge(bow.Value()).Shape();

    const Assembler assembler;
    assembler.part("Roof", sewing.SewedShape());
    assembler.part("Guide lines", compound_of({gutter, arch}));
    assembler.part("Datum", BRepBuilderAPI_MakeVertex({5, 10, 0}).Shape());
    assembler.write_step(folder / "roof.step");
}

// An angle with a hole.
void make_bracket(const std::filesystem::path& folder)
{
    auto bracket = BRepPrimAPI_MakeBox(40, 30, 40).Shape();
    bracket =
        BRepAlgoAPI_Cut(bracket, BRepPrimAPI_MakeBox(gp_Pnt(8, 0, 8), 32, 30, 32).Shape()).Shape();
    bracket = BRepAlgoAPI_Cut(bracket, cylinder({25, 15, 0}, gp::DZ(), 6, 8)).Shape();

    IGESControl_Controller::Init();
    IGESControl_Writer writer("MM", 1);
    auto header = writer.Model()->GlobalSection();
    header.SetFileName(new TCollection_HAsciiString("bracket.iges"));
    header.SetAuthorName(new TCollection_HAsciiString("Author"));
    header.SetDate(new TCollection_HAsciiString(iges_date));
    header.SetLastChangeDate(new TCollection_HAsciiString(iges_date));
    writer.Model()->SetGlobalSection(header);
    const auto file = (folder / "bracket.iges").string();
    writer.AddShape(bracket);
    writer.ComputeModel();
    if (!writer.Write(file.c_str())) {
        throw std::runtime_error("cannot write " + file);
    }
}

void make_all(const std::filesystem::path& folder)
{
    make_pump_station(folder);
    make_pile(folder);
    make_roof(folder);
    make_bracket(folder);
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: treemodel-make-models FOLDER\n";
        return EXIT_FAILURE;
    }
    try {
        make_all(argv[1]);
        return EXIT_SUCCESS;
    } catch (const Standard_Failure& failure) {
        std::cerr << failure.GetMessageString() << '\n';
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
    }
    return EXIT_FAILURE;
}
