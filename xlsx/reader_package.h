#pragma once
// The relationships of a package part: which part a part points to, and of what type.
//
// Targets are resolved to package part names without the leading "/" ("xl/worksheets/sheet1.xml"),
// whether the file wrote them relative to the source part ("worksheets/sheet1.xml",
// "../media/x.png") or absolute ("/xl/worksheets/sheet1.xml"). External targets are kept as
// written and marked.

#include <string>
#include <string_view>
#include <vector>

namespace orv {

class ZipInput;

struct Relationship {
  std::string id;
  std::string type;    // the full type URI
  std::string target;  // resolved part name, or the URI of an external target
  bool external = false;
};

// "xl/workbook.xml" -> "xl/_rels/workbook.xml.rels"; "" (the package itself) -> "_rels/.rels".
std::string relationshipsPartOf(std::string_view sourcePart);

// `target` as written in the relationships of `sourcePart`, resolved to a part name.
std::string resolveTarget(std::string_view sourcePart, std::string_view target);

// The relationships of `sourcePart` ("" for the package); none when it has no relationships part.
std::vector<Relationship> readRelationships(ZipInput& zip, std::string_view sourcePart);

// Whether the type URI names that kind ("worksheet", "officeDocument" ...), in the transitional
// or the strict namespace.
bool hasRelationshipType(const Relationship& r, std::string_view kind);

}  // namespace orv
