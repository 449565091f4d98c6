#pragma once

#include <importers/cad/PartTree.hpp>
#include <set>
#include <string>
#include <TDocStd_Document.hxx>

class TCollection_ExtendedString;

/// The document that OpenCASCADE's readers fill: shapes with an assembly tree and names.
class CadDocument
{
public:
    CadDocument();

    Handle(TDocStd_Document) & handle() { return m_document; }

    /// The assembly tree, with every instance of a part in its place. An instance takes
    /// the name of its product if its own is missing or one of `stand_ins`.
    std::vector<Part> roots(const std::set<std::string>& stand_ins) const;

private:
    Handle(TDocStd_Document) m_document;
};

/// A name as UTF-8; empty for what a program wrote for lack of one.
std::string proper_name(const TCollection_ExtendedString& name);
