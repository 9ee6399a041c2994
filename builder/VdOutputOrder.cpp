#include "builder/VdOutputOrder.h"

#include "core/VdFieldDef.h"
#include "core/VdTableDef.h"

#include <algorithm>

namespace vd {

std::vector<TVdFieldDef*> OutputFields(const TVdTableDefs& tables)
{
    std::vector<TVdFieldDef*> fields;
    for (TVdFieldDef* field : tables.FieldsInOrder())
        if (field && !field->IsInputParam())
            fields.push_back(field);
    return fields;
}

namespace {

int PositionOf(const std::vector<TVdFieldDef*>& fields, const TVdFieldDef* field)
{
    const auto it = std::find(fields.begin(), fields.end(), field);
    return it == fields.end() ? -1 : int(it - fields.begin());
}

// The output columns take the select-list places they held, in the new order; input
// parameters keep theirs.
void Renumber(const std::vector<TVdFieldDef*>& ordered)
{
    std::vector<int> places;
    places.reserve(ordered.size());
    for (const TVdFieldDef* field : ordered)
        places.push_back(field->FieldIndex());
    std::sort(places.begin(), places.end());
    for (size_t i = 0; i < ordered.size(); ++i)
        ordered[i]->SetFieldIndex(places[i]);
}

} // namespace

void MoveOutputField(TVdTableDefs& tables, int from, int to)
{
    std::vector<TVdFieldDef*> fields = OutputFields(tables);
    const int count = int(fields.size());
    if (from < 0 || to < 0 || from >= count || to >= count || from == to)
        return;
    TVdFieldDef* moved = fields[size_t(from)];
    fields.erase(fields.begin() + from);
    fields.insert(fields.begin() + to, moved);
    Renumber(fields);
}

void ReplaceOutputField(TVdTableDefs& tables, TVdFieldDef* field, TVdFieldDef* replaced)
{
    if (!field || !replaced || field == replaced)
        return;
    const int place = PositionOf(OutputFields(tables), replaced);
    replaced->Table()->FieldDefs().Delete(replaced->Index());
    const std::vector<TVdFieldDef*> fields = OutputFields(tables);
    const int at = PositionOf(fields, field);
    if (place >= 0 && at >= 0)
        MoveOutputField(tables, at, std::min(place, int(fields.size()) - 1));
}

} // namespace vd
