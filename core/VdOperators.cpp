#include "core/VdOperators.h"

#include "core/VdText.h"

namespace vd {

void TVdOperator::Assign(const TVdCollectionItem& source)
{
    const auto* src = dynamic_cast<const TVdOperator*>(&source);
    if (!src || src == this)
        return;
    Count = src->Count;
    Prefix = src->Prefix;
    Relate = src->Relate;
    Caption = src->Caption;
    Name = src->Name;
    Postfix = src->Postfix;
}

TVdOperators::TVdOperators()
    : TVdCollectionOf<TVdOperator>([] { return std::make_unique<TVdOperator>(); })
{
}

TVdOperator* TVdOperators::Add(const std::string& name, const std::string& caption, int count,
                               const std::string& relate, const std::string& prefix,
                               const std::string& postfix)
{
    TVdOperator* op = Add();
    op->Name = name;
    op->Caption = caption;
    op->Count = count;
    op->Relate = relate;
    op->Prefix = prefix;
    op->Postfix = postfix;
    return op;
}

// The lookups walk the items directly: they run for many tokens of every condition.
TVdOperator* TVdOperators::FindByCaption(std::string_view text) const
{
    for (const auto& item : RawItems()) {
        auto* op = static_cast<TVdOperator*>(item.get());
        if (op->Caption == text)
            return op;
    }
    return nullptr;
}

TVdOperator* TVdOperators::FindByName(const std::string& text) const
{
    for (int i = 0; i < Count(); ++i)
        if (Items(i)->Name == text)
            return Items(i);
    return nullptr;
}

TVdOperator* TVdOperators::FindNearest(std::string_view text, bool& partial) const
{
    const char first = text.empty() ? '\0' : text::UpperChar(text[0]);
    for (const auto& item : RawItems()) {
        auto* op = static_cast<TVdOperator*>(item.get());
        const std::string& caption = op->Caption;
        if (caption.size() <= text.size() &&
            (caption.empty() || text::UpperChar(caption[0]) == first) &&
            text::SameText(text.substr(0, caption.size()), caption)) {
            partial = text.size() != caption.size();
            return op;
        }
    }
    return nullptr;
}

bool TVdOperators::IsCaptionStart(std::string_view text) const
{
    const char first = text.empty() ? '\0' : text::UpperChar(text[0]);
    for (const auto& item : RawItems()) {
        const std::string& caption = static_cast<const TVdOperator*>(item.get())->Caption;
        if (caption.size() > text.size() && caption[text.size()] == ' ' &&
            (text.empty() || text::UpperChar(caption[0]) == first) &&
            text::SameText(std::string_view(caption).substr(0, text.size()), text))
            return true;
    }
    return false;
}

} // namespace vd
