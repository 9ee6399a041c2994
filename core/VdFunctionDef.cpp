#include "core/VdFunctionDef.h"

#include "core/VdScriptText.h"
#include "core/VdTableDef.h"
#include "core/VdText.h"

#include <typeinfo>

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

int TVdFunctionDef::ArgumentCount() const { return FArguments ? FArguments->Count() : 0; }

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

void script::AppendFunctionScript(std::string& out, const TVdFunctionDef& node)
{
    const TVdSelectParser* parser = node.Parser();
    const std::string& name = node.Name();
    if (node.ArgumentCount() > 0) {
        AppendFunctionName(out, parser, name);
        out += '(';
        AppendNodeList(out, *node.ArgumentList());
        out += ')';
        return;
    }
    switch (node.Kind()) {
    case fkFunction:
        AppendFunctionName(out, parser, name);
        out += "()";
        return;
    case fkIdentifier:
        if (const TVdTableDef* table = node.OwnerTable()) {
            const std::string& prefix = table->Alias().empty() ? table->Name() : table->Alias();
            if (!prefix.empty()) {
                AppendName(out, parser, prefix);
                out += '.';
            }
        }
        // The wildcard of T.* is no name and is never quoted.
        if (name == "*")
            out += name;
        else
            AppendName(out, parser, name);
        return;
    case fkString: {
        std::string_view s(name);
        if (s.size() > 1 && (s.front() == '"' || s.front() == '\'') &&
            (s.back() == '"' || s.back() == '\''))
            s = s.substr(1, s.size() - 2);
        // A dialect may write strings its own way (escapes); the base scanner's way is here.
        const TVdSQLScanner* scanner = parser ? &parser->Scanner() : nullptr;
        if (scanner && typeid(*scanner) != typeid(TVdSQLScanner))
            out += scanner->QuoteString(std::string(s));
        else
            text::AppendQuoted(out, s, '\'');
        return;
    }
    default:
        out += name;
    }
}

void script::AppendNodeScript(std::string& out, const TVdFunctionDef& node)
{
    if (typeid(node) == typeid(TVdFunctionDef))
        AppendFunctionScript(out, node);
    else
        out += node.GetScript();
}

void script::AppendNodeList(std::string& out, const TVdFunctionDefs& list)
{
    if (typeid(list) != typeid(TVdFunctionDefs)) {
        out += list.GetScript();
        return;
    }
    for (int i = 0; i < list.Count(); ++i) {
        if (i)
            out += ", ";
        AppendNodeScript(out, *list.Items(i));
    }
}

std::string TVdFunctionDef::GetScript() const
{
    std::string out;
    script::AppendFunctionScript(out, *this);
    return out;
}

void TVdFunctionDef::SetName(const std::string& name) { FName = name; }

void TVdFunctionDef::SetKind(TVdFunctionKind kind) { FKind = kind; }

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

namespace {

std::unique_ptr<TVdCollectionItem> MakeNode() { return std::make_unique<TVdFunctionDef>(); }

} // namespace

TVdFunctionDefs::TVdFunctionDefs(TVdCollectionItem* owner, TItemMaker maker)
    : TVdCollectionOf<TVdFunctionDef>(maker ? maker : &MakeNode), FOwner(owner)
{
}

TVdFunctionDefs::TVdFunctionDefs(TVdCollectionItem* owner, TItemFactory factory)
    : TVdCollectionOf<TVdFunctionDef>(factory ? std::move(factory) : TItemFactory(&MakeNode)),
      FOwner(owner)
{
}

std::string TVdFunctionDefs::GetScript() const
{
    std::string result;
    for (int i = 0; i < Count(); ++i) {
        if (i)
            result += ", ";
        script::AppendNodeScript(result, *Items(i));
    }
    return result;
}

} // namespace vd
