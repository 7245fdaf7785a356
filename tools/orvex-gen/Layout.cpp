#include "Layout.h"

#include <algorithm>
#include <functional>
#include <map>

#include "SchemaModel.h"

namespace OrvexGen {

void LayOut(std::vector<CFileModel*>& files, const std::vector<CClassModel*>& classes,
            const std::vector<CEnumModel*>& enums)
{
    for (CEnumModel* model : enums) const_cast<CFileModel*>(model->file)->enums.push_back(model);

    std::map<const CClassModel*, int> state;  // 1 in progress, 2 written
    std::function<void(CClassModel*)> visit = [&](CClassModel* cls) {
        if (state[cls]) return;
        state[cls] = 1;
        if (cls->base) {
            if (state[cls->base] == 1) throw CSchemaException(cls->schemaName + ": a type derived from itself");
            visit(cls->base);
        }
        for (CPropertyModel& property : cls->properties)
            if (property.type && property.type->file == cls->file && state[property.type] == 0) visit(property.type);
        const_cast<CFileModel*>(cls->file)->classes.push_back(cls);
        state[cls] = 2;
    };
    for (CClassModel* cls : classes) visit(cls);

    std::map<const CClassModel*, std::size_t> position;
    for (CFileModel* file : files)
        for (std::size_t i = 0; i < file->classes.size(); ++i) position[file->classes[i]] = i;
    for (CClassModel* cls : classes) {
        for (CPropertyModel& property : cls->properties) {
            if (!property.type) continue;
            if (property.type->file == cls->file)
                property.typeComplete = position[property.type] < position[cls];
            else if (std::find(cls->file->includes.begin(), cls->file->includes.end(), property.type->file) ==
                     cls->file->includes.end())
                const_cast<CFileModel*>(cls->file)->includes.push_back(property.type->file);
        }
        if (cls->base && cls->base->file != cls->file &&
            std::find(cls->file->includes.begin(), cls->file->includes.end(), cls->base->file) ==
                cls->file->includes.end())
            const_cast<CFileModel*>(cls->file)->includes.push_back(cls->base->file);
        for (const CPropertyModel& property : cls->properties)
            if (property.enumeration && property.enumeration->file != cls->file &&
                std::find(cls->file->includes.begin(), cls->file->includes.end(), property.enumeration->file) ==
                    cls->file->includes.end())
                const_cast<CFileModel*>(cls->file)->includes.push_back(property.enumeration->file);
    }
    // Headers that include each other would not compile.
    std::function<bool(const CFileModel*, const CFileModel*, int)> reaches = [&](const CFileModel* from,
                                                                                 const CFileModel* to, int depth) {
        if (depth > static_cast<int>(files.size())) return false;
        for (const CFileModel* next : from->includes)
            if (next == to || reaches(next, to, depth + 1)) return true;
        return false;
    };
    for (const CFileModel* file : files)
        if (reaches(file, file, 0))
            throw CSchemaException(file->schemaFile + ": its classes and those of another file hold each other; "
                                   "generate them as one file");
}

}  // namespace OrvexGen
