// The naming pass: C++ identifiers for the classes, enumerations, properties and
// enumerators of the class model, from their XML names. Collisions are resolved
// the same way on every run: the first claimant in a fixed order keeps the name,
// later ones get a suffix that says what they are, then a number.
#pragma once

#include <string>
#include <vector>

#include "ClassModel.h"

namespace OrvexGen {

// An XML name as an identifier: '-' and '.' start a new word, other characters
// that C++ does not take become '_'.
std::string Identifier(const std::string& xmlName);
std::string UpperFirst(const std::string& text);
// The member form of a property name: the leading capitals lowered, but for the
// one that starts the next word ("USPrice" -> "usPrice").
std::string LowerLead(const std::string& text);

void AssignNames(std::vector<CFileModel*>& files, const std::vector<CClassModel*>& classes,
                 const std::vector<CEnumModel*>& enums);

}  // namespace OrvexGen
