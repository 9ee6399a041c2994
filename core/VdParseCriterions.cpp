// WHERE and HAVING conditions: comparisons joined by AND, OR and NOT with SQL's precedence
// (NOT binds tighter than AND, AND tighter than OR), read into the smallest criteria tree that
// means the same.
#include "core/VdConditionTree.h"
#include "core/VdSelectParser.h"

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
    using TNode = std::unique_ptr<TVdConditionNode>;

    TNode ReadOr();
    TNode ReadAnd();
    TNode ReadNot();
    TNode ReadPrimary();
    TNode ReadParenthesis();
    TNode ReadComparison();
    bool AtSign();
    bool ReadOperator(TVdCriterion& criterion);
    bool ReadArguments(TVdCriterion& criterion, const TVdOperator& op);
    bool ReadEnclosedArgument(TVdCriterion& criterion, const TVdOperator& op);
    bool ReadOperand(TVdFunctionDef& node);
    bool IsConnector(const char* word) const;
    bool ExtendsOperator(const std::string& pending) const;
    bool Deeper();
    TNode Failed()
    {
        P.Fail();
        return nullptr;
    }

    TVdSelectParser& P;
    TVdSQLScanner& S;
    TVdCriterions& List;
    int Depth = 0;        // open parentheses and NOTs
    bool TooDeep = false; // a parenthesis or NOT went deeper than the parser allows
};

bool TVdCriteriaReader::IsConnector(const char* word) const
{
    return S.TokenKind() == tkKeyword && !S.TokenQuoted() && P.IsWord(word);
}

// Parentheses and NOTs nest at most MaxNesting deep; the one too deep is refused.
bool TVdCriteriaReader::Deeper()
{
    if (Depth >= TVdSelectParser::MaxNesting) {
        TooDeep = true;
        return false;
    }
    ++Depth;
    return true;
}

TVdCriteriaReader::TNode TVdCriteriaReader::ReadOr()
{
    const TVdSQLScanner::TState start = S.SaveState();
    TNode first = ReadAnd();
    if (!first || !IsConnector("OR"))
        return first;
    auto chain = TVdConditionNode::Chain(cnOr, start);
    // A chain has two links at least: room for a few at once spares the vector growing.
    chain->Items.reserve(4);
    chain->Items.push_back(std::move(first));
    while (IsConnector("OR")) {
        P.Next();
        TNode next = ReadAnd();
        if (!next)
            return nullptr;
        chain->Items.push_back(std::move(next));
    }
    return chain;
}

TVdCriteriaReader::TNode TVdCriteriaReader::ReadAnd()
{
    const TVdSQLScanner::TState start = S.SaveState();
    TNode first = ReadNot();
    if (!first || !IsConnector("AND"))
        return first;
    auto chain = TVdConditionNode::Chain(cnAnd, start);
    // A chain has two links at least: room for a few at once spares the vector growing.
    chain->Items.reserve(4);
    chain->Items.push_back(std::move(first));
    while (IsConnector("AND")) {
        P.Next();
        TNode next = ReadNot();
        if (!next)
            return nullptr;
        chain->Items.push_back(std::move(next));
    }
    return chain;
}

TVdCriteriaReader::TNode TVdCriteriaReader::ReadNot()
{
    if (!IsConnector("NOT"))
        return ReadPrimary();
    // NOT (...) counts once, at its parenthesis; NOT NOT ... counts every NOT.
    const bool own = !P.PeekIs("(");
    if (own && !Deeper())
        return Failed();
    const TVdSQLScanner::TState start = S.SaveState();
    P.Next();
    TNode operand = ReadNot();
    if (own)
        --Depth;
    if (!operand)
        return nullptr;
    auto negation = TVdConditionNode::Chain(cnNot, start);
    negation->Items.push_back(std::move(operand));
    return negation;
}

// A parenthesis holds a condition, or begins the left side of a comparison: (A + 1) * 2 > 3.
// The second reading is tried where the first fails; when both fail, the first one's error is
// reported.
TVdCriteriaReader::TNode TVdCriteriaReader::ReadPrimary()
{
    if (!P.IsDelimToken('('))
        return ReadComparison();
    const TVdSQLScanner::TState start = S.SaveState();
    const TVdSelectState state = P.State();
    if (TNode group = ReadParenthesis())
        return group;
    if (TooDeep || P.FNesting >= TVdSelectParser::MaxNesting)
        return nullptr; // refused where it went too deep, whichever way it is read
    const TVdSQLScanner::TState failure = S.SaveState();
    S.RestoreState(start);
    P.SetState(state);
    if (TNode comparison = ReadComparison())
        return comparison;
    S.RestoreState(failure);
    return Failed();
}

TVdCriteriaReader::TNode TVdCriteriaReader::ReadParenthesis()
{
    if (!Deeper())
        return Failed();
    const TVdSQLScanner::TState start = S.SaveState();
    P.Next();
    TNode inner = ReadOr();
    --Depth;
    if (!inner)
        return nullptr;
    if (!P.IsDelimToken(')'))
        return Failed();
    P.Next();
    auto parenthesis = TVdConditionNode::Chain(cnParenthesis, start);
    parenthesis->Items.push_back(std::move(inner));
    return parenthesis;
}

// A sign before a left side (-1 <= A, -(A + B) > 2): the operand is an expression.
bool TVdCriteriaReader::AtSign()
{
    if (S.TokenKind() != tkOperation || S.TokenQuoted() || (S.Token() != "-" && S.Token() != "+"))
        return false;
    const TVdSQLScanner::TState sign = S.SaveState();
    P.Next();
    const bool operand = P.IsOperandKind() || P.IsDelimToken('(');
    S.RestoreState(sign);
    return operand;
}

TVdCriteriaReader::TNode TVdCriteriaReader::ReadComparison()
{
    if (!P.IsOperandKind() && !P.IsDelimToken('(') && !AtSign())
        return Failed();
    auto node = TVdConditionNode::Comparison(P, List, S.SaveState());
    TVdTableDef* unused = nullptr;
    P.DoParseExpression(node->Criterion->LeftSide(), unused, TTokenKinds{tkKeyword, tkComparison},
                        std::string(), TVdExprContext::Condition);
    if (P.State() == ssError || !ReadOperator(*node->Criterion))
        return Failed();
    return node;
}

// Whether the current word goes on with the operator text: "IS" then "NOT", "NOT" then "LIKE".
bool TVdCriteriaReader::ExtendsOperator(const std::string& pending) const
{
    std::string text = pending;
    if (!text.empty())
        text += ' ';
    text += S.Token();
    return P.OperatorTable().IsCaptionOrStart(text);
}

// The operator, read as its words arrive ("IS", "NOT", "NULL"), then its arguments.
bool TVdCriteriaReader::ReadOperator(TVdCriterion& criterion)
{
    std::string pending;
    for (;;) {
        const TTokenKind kind = S.TokenKind();
        const bool quoted = S.TokenQuoted();
        if (kind == tkEnd || P.IsDelimToken(')') || P.IsDelimToken(','))
            return false;
        const bool word = !quoted && (kind == tkKeyword || kind == tkComparison ||
                                      (kind == tkIdent && ExtendsOperator(pending)));
        if (!word && (P.IsOperandKind() || P.IsDelimToken('('))) {
            // "A <= 5": "<=" was left pending as a partial match of "<"; the operand
            // completes it.
            if (pending.empty())
                return false;
            criterion.SetOperator(pending);
            return ReadOperand(*criterion.RightSide().Add());
        }
        std::string text = pending;
        if (!text.empty() && S.SpaceCount() > 0)
            text += ' ';
        text += S.Token();
        bool partial = false;
        const TVdOperator* op = P.OperatorTable().FindNearest(text, partial);
        if (op && !partial) {
            if (!ReadArguments(criterion, *op))
                return false;
            criterion.SetOperator(op->Caption);
            return true;
        }
        // An operator cannot begin with a token the scanner read as neither keyword nor
        // comparison (like%) that only begins with a caption: left pending, it printed
        // against its operand, which then read it back as part of the left side. Later
        // tokens may (NOT IN-#).
        const bool captionStart = P.OperatorTable().IsCaptionStart(text);
        if (op && pending.empty() && !captionStart && kind != tkKeyword && kind != tkComparison)
            op = nullptr;
        if (!op && !captionStart)
            return false;
        pending = text;
        P.Next();
    }
}

bool TVdCriteriaReader::ReadOperand(TVdFunctionDef& node)
{
    TVdTableDef* unused = nullptr;
    P.DoParseExpression(node, unused, TTokenKinds{tkKeyword, tkComparison}, std::string(),
                        TVdExprContext::Condition);
    return P.State() != ssError;
}

// "IN (1, 2)": the whole enclosed list is the one argument, kept as written.
bool TVdCriteriaReader::ReadEnclosedArgument(TVdCriterion& criterion, const TVdOperator& op)
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
        TVdFunctionDef* arg = criterion.RightSide().Add();
        arg->SetName(S.Expression().substr(size_t(start - 1), size_t(end - start)));
        arg->SetKind(fkExpression);
        return true;
    }
    P.Next();
    TVdTableDef* unused = nullptr;
    P.DoParseExpression(*criterion.RightSide().Add(), unused, TTokenKinds(), std::string(),
                        TVdExprContext::Condition);
    if (P.State() == ssError || !P.IsWord(op.Postfix.c_str()))
        return false;
    P.Next();
    return true;
}

bool TVdCriteriaReader::ReadArguments(TVdCriterion& criterion, const TVdOperator& op)
{
    P.Next();
    criterion.RightSide().Clear();
    for (int i = 0; i < op.Count; ++i) {
        if (i > 0 && !op.Relate.empty()) {
            if (!P.IsWord(op.Relate.c_str()))
                return false;
            P.Next();
        }
        if (!op.Prefix.empty()) {
            if (!ReadEnclosedArgument(criterion, op))
                return false;
            continue;
        }
        if (!ReadOperand(*criterion.RightSide().Add()))
            return false;
        if (!op.Postfix.empty()) {
            if (!P.IsWord(op.Postfix.c_str()))
                return false;
            P.Next();
        }
    }
    return true;
}

void TVdCriteriaReader::Read()
{
    TNode condition = ReadOr();
    if (!condition)
        return P.Fail();
    // The condition ends at a clause keyword, the end, or a ")" that is not ours (the clause
    // step sees those); an operand or "(" here has no connector before it.
    if (P.IsOperandKind() || P.IsDelimToken('('))
        return P.Fail();
    if (const TVdConditionNode* tooDeep = condition->FillClause(List)) {
        S.RestoreState(tooDeep->Start);
        P.Fail();
    }
}

void TVdSelectParser::DoParseCriterions(TVdCriterions& list)
{
    TVdCriteriaReader reader(*this, list);
    reader.Read();
}

} // namespace vd
