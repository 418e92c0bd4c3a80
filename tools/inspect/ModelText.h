#pragma once

#include "inspect/HeaderMetadata.h"

#include <string>

/// Header metadata as text. Strings come out quoted, with what a terminal could mistake for more
/// than text escaped.
namespace modeltext {

/// The object in a line, indented by its depth: its properties with their units, its instance UID
/// and the position behind it. Its dark properties follow, a line for each. A root that isn't the
/// first one is called unreferenced.
std::string linesOf(const ModelObject& described, bool isFirst);

/// Of UTF-8 text; bytes that are none are replaced.
std::string quoted(const std::string& utf8);

} // namespace modeltext
