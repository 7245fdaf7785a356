// The layout pass: which file holds which class and enumeration, in which order
// the classes are written (a base and the classes of held objects first, where
// recursion allows), and which headers a header includes.
#pragma once

#include <vector>

#include "ClassModel.h"

namespace OrvexGen {

// Fails with CSchemaException when two output files need each other.
void LayOut(std::vector<CFileModel*>& files, const std::vector<CClassModel*>& classes,
            const std::vector<CEnumModel*>& enums);

}  // namespace OrvexGen
