#pragma once

#include "core/VdCollection.h"

#include <string>
#include <string_view>

namespace vd {

// One comparison operator: Caption is the SQL text that criteria store and print, Name the
// text it is shown and found by, Count the number of right-side arguments.
class TVdOperator : public TVdCollectionItem
{
public:
    void Assign(const TVdCollectionItem& source) override;

    int Count = 1;
    std::string Prefix;
    std::string Relate;
    std::string Caption;
    std::string Name;
    std::string Postfix;
};

class TVdOperators : public TVdCollectionOf<TVdOperator>
{
public:
    TVdOperators();

    TVdOperator* Add(const std::string& name, const std::string& caption, int count,
                     const std::string& relate = std::string(),
                     const std::string& prefix = std::string(),
                     const std::string& postfix = std::string());
    using TVdCollectionOf<TVdOperator>::Add;

    TVdOperator* FindByCaption(const std::string& text) const
    {
        return FindByCaption(std::string_view(text));
    }
    TVdOperator* FindByCaption(std::string_view text) const;
    TVdOperator* FindByCaption(const char* text) const
    {
        return FindByCaption(std::string_view(text));
    }
    TVdOperator* FindByName(const std::string& text) const;
    // The first operator, in table order, whose caption (upper case) begins the text (upper
    // case); partial tells whether the text is longer. Order matters: "<" is found for "<=".
    TVdOperator* FindNearest(const std::string& text, bool& partial) const
    {
        return FindNearest(std::string_view(text), partial);
    }
    TVdOperator* FindNearest(std::string_view text, bool& partial) const;
    TVdOperator* FindNearest(const char* text, bool& partial) const
    {
        return FindNearest(std::string_view(text), partial);
    }
    // Whether some caption begins with the words of text ("IS" and "IS NOT" for "IS NOT NULL").
    bool IsCaptionStart(const std::string& text) const
    {
        return IsCaptionStart(std::string_view(text));
    }
    bool IsCaptionStart(std::string_view text) const;
    bool IsCaptionStart(const char* text) const { return IsCaptionStart(std::string_view(text)); }
    // Whether text is a whole caption or begins one with its words: an operator read so far.
    bool IsCaptionOrStart(std::string_view text) const
    {
        bool partial = false;
        return (FindNearest(text, partial) && !partial) || IsCaptionStart(text);
    }
};

} // namespace vd
