// WHERE and HAVING conditions: criteria, operators read as their tokens arrive, connectors.
#include "core/VdSelectParser.h"

#include <vector>

namespace vd {

class TVdCriteriaReader
{
public:
    TVdCriteriaReader(TVdSelectParser& parser, TVdCriterions& list)
        : P(parser), S(parser.Scanner()), List(list)
    {
    }

    void Read();

private:
    enum TStep { stContinue, stStop };

    TStep OpenParenthesis();
    TStep CloseParenthesis();
    TStep Operand();
    TStep OperatorWord();
    TStep Connector();
    bool ReadArguments(const TVdOperator& op);
    bool ReadEnclosedArgument(const TVdOperator& op);
    bool CompletePending();
    void MoveUp();
    void SetCurrent(TVdCriterion* criterion);
    bool InOperatorPosition() const;
    bool IsConnector() const;
    bool ExtendsOperator() const;
    TVdCriterions& Target() const { return Current ? Current->SubItems() : List; }
    void Regroup(TVdCriterion& criterion);

    TVdSelectParser& P;
    TVdSQLScanner& S;
    TVdCriterions& List;
    TVdCriterion* Current = nullptr;
    bool LeftRead = false;     // the current comparison has its left side
    bool OperatorRead = false; // ... and its operator with all arguments
    std::string Pending;       // operator text read so far ("IS NOT" on the way to "IS NOT NULL")
    TVdSQLScanner::TState PendingStart{};
    bool AfterClose = false;     // the token before was ")"
    bool AfterConnector = false; // a connector was read and nothing after it yet
    bool ForceConnector = false; // read the current word as a connector, not as an operator
    // NOT stood on the sub-items of the current criterion while it had neither sub-items nor a
    // left side: a comparison read into the criterion itself would print without the NOT.
    bool NegatedEmpty = false;
    // For every open "(": true when it is the parenthesis of a NOT, false for a criterion's.
    std::vector<bool> Parentheses;
};

void TVdCriteriaReader::SetCurrent(TVdCriterion* criterion)
{
    Current = criterion;
    LeftRead = false;
    OperatorRead = false;
    NegatedEmpty = false;
}

bool TVdCriteriaReader::InOperatorPosition() const
{
    return Current && !Current->IsGroup() && LeftRead && !OperatorRead;
}

// Whether the current word goes on with the operator text: "IS" then "NOT", "NOT" then "LIKE".
// After a pending "<=" a word is its operand.
bool TVdCriteriaReader::ExtendsOperator() const
{
    if (!InOperatorPosition() && Pending.empty())
        return false;
    std::string text = Pending;
    if (!text.empty())
        text += ' ';
    text += S.Token();
    bool partial = false;
    const TVdOperator* op = P.Operators().FindNearest(text, partial);
    return (op && !partial) || P.Operators().IsCaptionStart(text);
}

bool TVdCriteriaReader::IsConnector() const
{
    return S.TokenKind() == tkKeyword && !S.TokenQuoted() &&
           (P.IsWord("AND") || P.IsWord("OR") || P.IsWord("NOT"));
}

// The comparison standing open is complete; the criterion that owns its list becomes current.
bool TVdCriteriaReader::CompletePending()
{
    if (!Current)
        return true;
    if (!Current->IsGroup() && (!LeftRead || !OperatorRead || !Pending.empty()))
        return false;
    MoveUp();
    return true;
}

void TVdCriteriaReader::MoveUp()
{
    TVdCriterion* parent = Current ? Current->ParentCriterion() : nullptr;
    Current = parent;
    // A criterion reached again by moving up is a group, already complete.
    LeftRead = OperatorRead = parent != nullptr;
    NegatedEmpty = false;
}

TVdCriteriaReader::TStep TVdCriteriaReader::OpenParenthesis()
{
    if (InOperatorPosition() || (Current && !Current->IsGroup() && OperatorRead)) {
        P.Fail();
        return stStop;
    }
    if (int(Parentheses.size()) >= TVdSelectParser::MaxNesting) {
        P.Fail();
        return stStop;
    }
    TVdCriterion* criterion = Current ? Current->SubItems().Add() : List.Add();
    SetCurrent(criterion);
    Parentheses.push_back(false);
    P.Next();
    return stContinue;
}

TVdCriteriaReader::TStep TVdCriteriaReader::CloseParenthesis()
{
    if (Parentheses.empty())
        return stStop; // not ours: the clause step sees it
    const bool notParenthesis = Parentheses.back();
    Parentheses.pop_back();
    if (!notParenthesis) {
        if (!Current || !CompletePending()) {
            P.Fail();
            return stStop;
        }
    }
    AfterClose = true;
    P.Next();
    return stContinue;
}

TVdCriteriaReader::TStep TVdCriteriaReader::Operand()
{
    if (!Current)
        SetCurrent(List.Add());
    TVdTableDef* unused = nullptr;
    const TTokenKinds stops{tkKeyword, tkComparison};
    if (Pending.empty()) {
        // (NOT A = 1) and (NOT (A = 1)): the NOT is on the criterion's sub-items, the
        // comparison would be the criterion's own. Its print is (NOT ((A = 1))).
        if (LeftRead || Current->IsGroup() || NegatedEmpty) {
            P.Fail();
            return stStop;
        }
        P.DoParseExpression(Current->LeftSide(), unused, stops, std::string(),
                            TVdExprContext::Condition);
        LeftRead = true;
    } else {
        // "A <= 5": "<=" was left pending as a partial match of "<"; the operand completes it.
        Current->SetOperator(Pending);
        TVdFunctionDefs& right = Current->RightSide();
        TVdFunctionDef* arg = right.Count() > 0 ? right.Items(right.Count() - 1) : right.Add();
        P.DoParseExpression(*arg, unused, stops, std::string(), TVdExprContext::Condition);
        Pending.clear();
        OperatorRead = true;
    }
    return P.State() == ssError ? stStop : stContinue;
}

// "IN (1, 2)": the whole enclosed list is the one argument, kept as written.
bool TVdCriteriaReader::ReadEnclosedArgument(const TVdOperator& op)
{
    if (!P.IsWord(op.Prefix.c_str()))
        return false;
    const int start = S.TokenStart();
    int end = S.TokenEnd();
    if (op.Prefix == "(" && op.Postfix == ")") {
        int depth = 0;
        do {
            if (P.IsDelimToken('('))
                ++depth;
            else if (P.IsDelimToken(')'))
                --depth;
            end = S.TokenEnd();
            P.Next();
        } while (depth > 0 && S.TokenKind() != tkEnd);
        if (depth > 0)
            return false;
        TVdFunctionDef* arg = Current->RightSide().Add();
        arg->SetName(S.Expression().substr(size_t(start - 1), size_t(end - start)));
        arg->SetKind(fkExpression);
        return true;
    }
    P.Next();
    TVdTableDef* unused = nullptr;
    P.DoParseExpression(*Current->RightSide().Add(), unused, TTokenKinds(), std::string(),
                        TVdExprContext::Condition);
    if (P.State() == ssError || !P.IsWord(op.Postfix.c_str()))
        return false;
    P.Next();
    return true;
}

bool TVdCriteriaReader::ReadArguments(const TVdOperator& op)
{
    P.Next();
    Current->RightSide().Clear();
    const TTokenKinds stops{tkKeyword, tkComparison};
    for (int i = 0; i < op.Count; ++i) {
        if (i > 0 && !op.Relate.empty()) {
            if (!P.IsWord(op.Relate.c_str()))
                return false;
            P.Next();
        }
        if (!op.Prefix.empty()) {
            if (!ReadEnclosedArgument(op))
                return false;
            continue;
        }
        TVdTableDef* unused = nullptr;
        P.DoParseExpression(*Current->RightSide().Add(), unused, stops, std::string(),
                            TVdExprContext::Condition);
        if (P.State() == ssError)
            return false;
        if (!op.Postfix.empty()) {
            if (!P.IsWord(op.Postfix.c_str()))
                return false;
            P.Next();
        }
    }
    return true;
}

TVdCriteriaReader::TStep TVdCriteriaReader::OperatorWord()
{
    std::string text = Pending;
    if (!text.empty() && S.SpaceCount() > 0)
        text += ' ';
    text += S.Token();
    bool partial = false;
    const TVdOperator* op = P.Operators().FindNearest(text, partial);
    if (op && !partial) {
        if (!ReadArguments(*op)) {
            P.Fail();
            return stStop;
        }
        Current->SetOperator(op->Caption);
        Pending.clear();
        OperatorRead = true;
        return stContinue;
    }
    // An operator cannot begin with a token the scanner read as neither keyword nor comparison
    // (like%) that only begins with a caption: left pending, it printed against its operand,
    // which then read it back as part of the left side. Later tokens may (NOT IN-#).
    const TTokenKind kind = S.TokenKind();
    const bool captionStart = P.Operators().IsCaptionStart(text);
    if (op && Pending.empty() && !captionStart && kind != tkKeyword && kind != tkComparison)
        op = nullptr;
    if (op || captionStart) {
        if (Pending.empty())
            PendingStart = S.SaveState();
        Pending = text;
        P.Next();
        return stContinue;
    }
    // No operator reads this way: back to where the operator text began, as a connector.
    if (!Pending.empty())
        S.RestoreState(PendingStart);
    Pending.clear();
    ForceConnector = true;
    return stContinue;
}

TVdCriteriaReader::TStep TVdCriteriaReader::Connector()
{
    ForceConnector = false;
    if (P.IsWord("NOT")) {
        Target().Filter = cfNone;
        NegatedEmpty = Current && !Current->IsGroup() && !LeftRead;
        P.Next();
        // NOT (...) is how a cfNone or cfNotAll list prints: that parenthesis is the NOT's own.
        if (P.IsDelimToken('(')) {
            if (int(Parentheses.size()) >= TVdSelectParser::MaxNesting) {
                P.Fail();
                return stStop;
            }
            Parentheses.push_back(true);
            P.Next();
        }
        return stContinue;
    }
    const bool isAnd = P.IsWord("AND");
    if (!isAnd && !P.IsWord("OR"))
        return stStop;
    if (!AfterClose && !CompletePending()) {
        P.Fail();
        return stStop;
    }
    TVdCriterions& target = Target();
    const TVdCriterionFilter before = target.Filter;
    if (isAnd)
        target.Filter = before == cfAny ? cfAll : before == cfNotAll ? cfNone : before;
    else
        target.Filter = before == cfAll ? cfAny : before == cfNone ? cfNotAll : before;
    if (Current) {
        TVdCriterions* holder = Current->OwnerList();
        if (target.Filter != before && holder && holder->Count() > 2)
            Regroup(*Current);
        // Inside a group every item after a connector stands in parentheses.
        if (!P.PeekIs("(")) {
            P.Fail();
            return stStop;
        }
    }
    P.Next();
    return stContinue;
}

// Puts a new group before the criterion and moves the other items of its list into the group.
// The walk goes on with the next position after a deletion, so the item that moved into the
// freed place is passed over, and it runs to the count taken after the insertion: once an
// item has moved, the last position asked for is past the end and the list raises its index
// error, which leaves the parser as an exception.
// The walk is worked out on positions first and the moved items leave the list together, as
// deleting them one by one would cost the square of a long list: after k deletions, all made
// at or before the position walked, position i holds the item that stood at i + k.
void TVdCriteriaReader::Regroup(TVdCriterion& criterion)
{
    TVdCriterions& list = *criterion.OwnerList();
    TVdCriterion* group = list.Insert(criterion.Index());
    const int n = list.Count();
    std::vector<int> moved;
    int pastEnd = -1;
    for (int i = 0; i < n; ++i) {
        const int k = int(moved.size());
        if (i >= n - k) {
            pastEnd = i;
            break;
        }
        const int at = i + k;
        if (at == group->Index() || at == criterion.Index())
            continue;
        moved.push_back(at);
    }
    for (int at : moved)
        group->SubItems().Add()->Assign(*list.Items(at));
    list.DeleteItems(moved);
    if (pastEnd >= 0) {
        // The step past the end appends the group's new item before it asks for the position.
        group->SubItems().Add();
        throw EVdListError(pastEnd);
    }
    group->SubItems().Filter = list.Filter;
}

void TVdCriteriaReader::Read()
{
    for (;;) {
        TStep step = stStop;
        const TTokenKind kind = S.TokenKind();
        const bool quoted = S.TokenQuoted();
        const bool closing = !quoted && P.IsDelimToken(')');
        if (kind == tkEnd)
            break;
        const bool connector =
            ForceConnector || (IsConnector() && Pending.empty() && !InOperatorPosition());
        if (connector)
            step = Connector();
        else if (!quoted && P.IsDelimToken('(') && Pending.empty())
            step = OpenParenthesis();
        else if (!quoted && P.IsDelimToken(')'))
            step = CloseParenthesis();
        else if (!quoted && (kind == tkKeyword || kind == tkComparison ||
                             (kind == tkIdent && ExtendsOperator())))
            step = (InOperatorPosition() || !Pending.empty()) ? OperatorWord() : stStop;
        else if (P.IsOperandKind() || (!Pending.empty() && P.IsDelimToken('(')))
            step = Operand();
        else if (InOperatorPosition())
            step = OperatorWord();
        else
            P.Fail();
        if (step == stStop)
            break;
        if (!closing)
            AfterClose = false;
        AfterConnector = step == stContinue && connector;
        if (P.State() == ssError)
            return;
    }
    if (P.State() == ssError)
        return;
    // The condition ends at a clause keyword or the end: everything opened must be closed, and
    // a connector needs a condition after it.
    if (AfterConnector || !Parentheses.empty() || !Pending.empty() || !CompletePending()) {
        P.Fail();
        return;
    }
}

void TVdSelectParser::DoParseCriterions(TVdCriterions& list)
{
    TVdCriteriaReader reader(*this, list);
    reader.Read();
}

} // namespace vd
