#include "core/VdFunctionDef.h"

#include "core/VdTableDef.h"
#include "core/VdText.h"

namespace vd {

TVdFunctionDef::TVdFunctionDef() = default;
TVdFunctionDef::~TVdFunctionDef() = default;

void TVdFunctionDef::SetParser(TVdSelectParser* parser)
{
    TVdCollectionItem::SetParser(parser);
    if (FArguments)
        FArguments->SetParser(parser);
}

std::unique_ptr<TVdFunctionDefs> TVdFunctionDef::CreateArguments()
{
    return std::make_unique<TVdFunctionDefs>(this);
}

TVdFunctionDefs& TVdFunctionDef::Arguments()
{
    if (!FArguments) {
        FArguments = CreateArguments();
        FArguments->SetOwnerNode(this);
        FArguments->SetParser(Parser());
    }
    return *FArguments;
}

int TVdFunctionDef::ArgumentCount() const
{
    return FArguments ? FArguments->Count() : 0;
}

const TVdFunctionDef* TVdFunctionDef::Argument(int index) const
{
    return FArguments ? FArguments->Items(index) : nullptr;
}

const TVdTableDef* TVdFunctionDef::OwnerTable() const
{
    const TVdCollectionItem* item = this;
    for (;;) {
        TVdCollection* collection = item->Collection();
        TVdFunctionDefs* list = collection ? collection->AsFunctionDefs() : nullptr;
        if (!list)
            return nullptr;
        if (list->OwnerTable())
            return list->OwnerTable();
        if (!list->OwnerNode())
            return nullptr;
        item = list->OwnerNode();
    }
}

std::string TVdFunctionDef::GetScript() const
{
    if (ArgumentCount() > 0)
        return ProcessFunction(FName) + "(" + FArguments->GetScript() + ")";
    switch (FKind) {
    case fkFunction:
        return ProcessFunction(FName) + "()";
    case fkIdentifier: {
        // The wildcard of T.* is no name and is never quoted.
        std::string name = FName == "*" ? FName : ProcessName(FName);
        const TVdTableDef* table = OwnerTable();
        if (!table)
            return name;
        const std::string& prefix = table->Alias().empty() ? table->Name() : table->Alias();
        if (prefix.empty())
            return name;
        return ProcessName(prefix) + "." + name;
    }
    case fkString: {
        std::string_view s(FName);
        if (s.size() > 1 && (s.front() == '"' || s.front() == '\'')
            && (s.back() == '"' || s.back() == '\''))
            s = s.substr(1, s.size() - 2);
        return text::QuotedStr(s, '\'');
    }
    default:
        return FName;
    }
}

void TVdFunctionDef::SetName(const std::string& name)
{
    FName = name;
}

void TVdFunctionDef::SetKind(TVdFunctionKind kind)
{
    FKind = kind;
}

void TVdFunctionDef::Clear()
{
    FName.clear();
    FKind = fkUnknown;
    if (FArguments)
        FArguments->Clear();
}

void TVdFunctionDef::Assign(const TVdCollectionItem& source)
{
    const auto* src = dynamic_cast<const TVdFunctionDef*>(&source);
    if (!src || src == this)
        return;
    FName = src->FName;
    FKind = src->FKind;
    if (src->ArgumentCount() > 0)
        Arguments().Assign(*src->FArguments);
    else if (FArguments)
        FArguments->Clear();
}

TVdFunctionDefs::TVdFunctionDefs(TVdCollectionItem* owner, TItemFactory factory)
    : TVdCollectionOf<TVdFunctionDef>(factory ? std::move(factory)
                                              : [] { return std::make_unique<TVdFunctionDef>(); })
    , FOwner(owner)
{
}

std::string TVdFunctionDefs::GetScript() const
{
    std::string result;
    for (int i = 0; i < Count(); ++i) {
        if (i)
            result += ", ";
        result += Items(i)->GetScript();
    }
    return result;
}

} // namespace vd
