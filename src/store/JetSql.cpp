#include "store/JetSql.h"

#include "core/Literals.h"
#include "store/CaseBlind.h"
#include "store/JetFunctions.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace kelvado {

namespace {

enum class TokenKind { Word, Number, Text, Bracketed, Symbol };

struct Token
{
    TokenKind kind;
    QStringView text;
    QString written; // what stands for it in the translation
    bool spaced;     // white space stood in front of it
};

bool StartsWord(QChar c)
{
    return c.isLetter() || c == u'_' || c.unicode() > 127;
}

bool ContinuesWord(QChar c)
{
    return StartsWord(c) || c.isDigit();
}

class Tokenizer
{
public:
    explicit Tokenizer(QStringView sql) : m_sql(sql) {}

    /// Nothing where a quote or bracket has no end.
    std::optional<std::vector<Token>> Run()
    {
        std::vector<Token> tokens;
        for (;;) {
            const qsizetype before = m_at;
            SkipBlanks();
            if (m_at == m_sql.size())
                return tokens;
            const bool spaced = m_at > before;
            const qsizetype start = m_at;
            const std::optional<TokenKind> kind = Skip();
            if (!kind)
                return std::nullopt;
            const QStringView text = m_sql.sliced(start, m_at - start);
            tokens.push_back({*kind, text, text.toString(), spaced});
        }
    }

private:
    // Comments, in the engine's form, count as blanks.
    void SkipBlanks()
    {
        while (m_at < m_sql.size()) {
            const QStringView rest = m_sql.sliced(m_at);
            if (rest.startsWith(u"--"))
                SkipBehind(u"\n");
            else if (rest.startsWith(u"/*"))
                SkipBehind(u"*/");
            else if (rest.front().isSpace())
                ++m_at;
            else
                return;
        }
    }

    void SkipBehind(QStringView end)
    {
        const qsizetype at = m_sql.indexOf(end, m_at + 2);
        m_at = at < 0 ? m_sql.size() : at + end.size();
    }

    std::optional<TokenKind> Skip()
    {
        const QChar first = m_sql[m_at];
        if (first == u'\'' || first == u'"')
            return SkipQuoted(first) ? std::optional(TokenKind::Text) : std::nullopt;
        if (first == u'[') {
            const qsizetype end = m_sql.indexOf(u']', m_at);
            m_at = end + 1;
            return end >= 0 ? std::optional(TokenKind::Bracketed) : std::nullopt;
        }
        if (IsDigit(m_at) || (first == u'.' && IsDigit(m_at + 1))) {
            SkipNumber();
            return TokenKind::Number;
        }
        if (StartsWord(first)) {
            while (m_at < m_sql.size() && ContinuesWord(m_sql[m_at]))
                ++m_at;
            return TokenKind::Word;
        }
        constexpr std::array kPairs{u"<>", u"<=", u">=", u"!=", u"||"};
        const QStringView pair = m_sql.sliced(m_at).left(2);
        m_at += std::ranges::any_of(kPairs, [pair](const char16_t* known) { return pair == QStringView(known); }) ? 2 : 1;
        return TokenKind::Symbol;
    }

    bool IsDigit(qsizetype at) const { return at < m_sql.size() && m_sql[at] >= u'0' && m_sql[at] <= u'9'; }

    bool SkipQuoted(QChar quote)
    {
        for (++m_at; m_at < m_sql.size(); ++m_at) {
            if (m_sql[m_at] != quote)
                continue;
            if (m_at + 1 < m_sql.size() && m_sql[m_at + 1] == quote) {
                ++m_at; // a doubled quote stands for one
                continue;
            }
            ++m_at;
            return true;
        }
        return false;
    }

    void SkipDigits()
    {
        while (IsDigit(m_at))
            ++m_at;
    }

    void SkipNumber()
    {
        SkipDigits();
        if (m_at < m_sql.size() && m_sql[m_at] == u'.') {
            ++m_at;
            SkipDigits();
        }
        if (m_at < m_sql.size() && (m_sql[m_at] == u'e' || m_sql[m_at] == u'E')) {
            const bool isSigned = m_at + 1 < m_sql.size() && (m_sql[m_at + 1] == u'+' || m_sql[m_at + 1] == u'-');
            const qsizetype digits = m_at + (isSigned ? 2 : 1);
            if (IsDigit(digits)) {
                m_at = digits;
                SkipDigits();
            }
        }
    }

    QStringView m_sql;
    qsizetype m_at = 0;
};

class Translator
{
public:
    Translator(std::vector<Token> tokens, const NumberColumns& numberColumns) : m_tokens(std::move(tokens)), m_numberColumns(numberColumns)
    {
    }

    TranslatedSql Run()
    {
        TakeEndOut();
        TakeTopOut();
        TakeDeleteListOut();
        for (std::size_t i = 0; i < m_tokens.size(); ++i)
            WriteToken(i);
        WriteColumns();
        TranslatedSql translated;
        translated.sql = Join(0, m_tokens.size()) + m_limit;
        DescribePlainSelect(translated);
        return translated;
    }

private:
    bool IsWord(std::size_t i, QStringView word) const
    {
        return i < m_tokens.size() && m_tokens[i].kind == TokenKind::Word && m_tokens[i].text.compare(word, Qt::CaseInsensitive) == 0;
    }

    bool IsAnyWord(std::size_t i, std::initializer_list<QStringView> words) const
    {
        return std::ranges::any_of(words, [&](QStringView word) { return IsWord(i, word); });
    }

    bool IsSymbol(std::size_t i, QStringView symbol) const
    {
        return i < m_tokens.size() && m_tokens[i].kind == TokenKind::Symbol && m_tokens[i].text == symbol;
    }

    bool IsName(std::size_t i) const
    {
        return i < m_tokens.size() && (m_tokens[i].kind == TokenKind::Word || m_tokens[i].kind == TokenKind::Bracketed);
    }

    void Erase(std::size_t from, std::size_t to)
    {
        m_tokens.erase(m_tokens.begin() + static_cast<std::ptrdiff_t>(from), m_tokens.begin() + static_cast<std::ptrdiff_t>(to));
    }

    // The statement may become a part of another one, where its end would be in the way.
    void TakeEndOut()
    {
        while (!m_tokens.empty() && IsSymbol(m_tokens.size() - 1, u";"))
            m_tokens.pop_back();
    }

    // "SELECT Top 1 * …" asks for the first rows; SQLite wants the number at the end.
    void TakeTopOut()
    {
        if (!IsWord(0, u"SELECT"))
            return;
        const std::size_t at = IsAnyWord(1, {u"DISTINCT", u"ALL"}) ? 2 : 1;
        if (!IsWord(at, u"TOP") || at + 1 >= m_tokens.size() || m_tokens[at + 1].kind != TokenKind::Number)
            return;
        m_limit = u" LIMIT "_s + m_tokens[at + 1].text.toString();
        Erase(at, at + 2);
    }

    // "DELETE * FROM …": the list says nothing.
    void TakeDeleteListOut()
    {
        if (!IsWord(0, u"DELETE"))
            return;
        std::size_t from = 1;
        while (from < m_tokens.size() && !IsWord(from, u"FROM"))
            ++from;
        if (from < m_tokens.size())
            Erase(1, from);
    }

    void WriteToken(std::size_t i)
    {
        Token& token = m_tokens[i];
        if (i > 0 && m_tokens[i - 1].kind == TokenKind::Number && token.kind == TokenKind::Word)
            token.spaced = true;
        if (token.kind == TokenKind::Text && token.text.front() == u'"') {
            QString inner = token.text.sliced(1, token.text.size() - 2).toString();
            inner.replace(u"\"\""_s, u"\""_s).replace(u"'"_s, u"''"_s);
            token.written = u'\'' + inner + u'\'';
        } else if (IsSymbol(i, u"!") && i > 0 && IsName(i - 1) && IsName(i + 1)) {
            token.written = u"."_s;
        } else if (IsReservedName(i)) {
            token.written = u'[' + token.text.toString() + u']';
        }
    }

    // Brackets and not double quotes: SQLite takes a double-quoted name that it does not know for a text.
    bool IsReservedName(std::size_t i) const
    {
        if (IsAnyWord(i, {u"Group", u"Order"}))
            return !IsWord(i + 1, u"BY");
        if (IsAnyWord(i, {u"Left", u"Right"}))
            return IsSymbol(i + 1, u"(");
        return IsWord(i, u"Index");
    }

    // The number of tokens of the literal at `i`, 0 where none stands there.
    std::size_t LiteralLength(std::size_t i) const
    {
        if (i >= m_tokens.size())
            return 0;
        if (m_tokens[i].kind == TokenKind::Text || m_tokens[i].kind == TokenKind::Number)
            return 1;
        const bool isSign = IsSymbol(i, u"-") || IsSymbol(i, u"+");
        return isSign && i + 1 < m_tokens.size() && m_tokens[i + 1].kind == TokenKind::Number ? 2 : 0;
    }

    // A column's name at `i`.
    struct Name
    {
        std::size_t length = 0; ///< in tokens, with its table; 0 where none stands there
        QString column;         ///< in lower case
    };

    Name NameAt(std::size_t i) const
    {
        if (!IsName(i) || IsSymbol(i + 1, u"("))
            return {};
        const bool qualified = (IsSymbol(i + 1, u".") || IsSymbol(i + 1, u"!")) && IsName(i + 2);
        const Token& name = m_tokens[qualified ? i + 2 : i];
        const QStringView bare = name.kind == TokenKind::Bracketed ? name.text.sliced(1, name.text.size() - 2) : name.text;
        return {qualified ? std::size_t{3} : std::size_t{1}, bare.toString().toLower()};
    }

    bool IsComparison(std::size_t i) const
    {
        return i < m_tokens.size() && m_tokens[i].kind == TokenKind::Symbol &&
               std::ranges::any_of(std::initializer_list<QStringView>{u"=", u"<>", u"<", u"<=", u">", u">="},
                                   [&](QStringView sign) { return m_tokens[i].text == sign; });
    }

    void Wrap(std::size_t from, std::size_t length, const QString& before, const QString& behind)
    {
        m_tokens[from].written.prepend(before);
        m_tokens[from + length - 1].written.append(behind);
    }

    void Call(const char* function, std::size_t from, std::size_t length)
    {
        Wrap(from, length, QLatin1StringView(function) + u"("_s, u")"_s);
    }

    void ReadEmptyAsNull(std::size_t from, std::size_t length) { Wrap(from, length, u"nullif("_s, u",'')"_s); }

    enum class Clause { List, Argument, Condition, Order, Other };

    std::optional<Clause> ClauseAt(std::size_t i) const
    {
        if (IsAnyWord(i, {u"WHERE", u"ON", u"HAVING"}))
            return Clause::Condition;
        if (IsAnyWord(i, {u"ORDER", u"GROUP"}) && IsWord(i + 1, u"BY"))
            return Clause::Order;
        if (IsWord(i, u"SELECT"))
            return Clause::List;
        return IsAnyWord(i, {u"SET", u"FROM", u"INTO", u"VALUES"}) ? std::optional(Clause::Other) : std::nullopt;
    }

    // Only conditions compare: the same sign in a SET list stores.
    void WriteColumns()
    {
        Clause clause = Clause::Other;
        std::vector<Clause> outer;
        for (std::size_t i = 0; i < m_tokens.size(); ++i) {
            if (IsSymbol(i, u"(")) {
                outer.push_back(clause);
                clause = clause == Clause::List ? Clause::Argument : clause;
            } else if (IsSymbol(i, u")") && !outer.empty()) {
                clause = outer.back();
                outer.pop_back();
            } else if (const std::optional<Clause> next = ClauseAt(i)) {
                clause = *next;
            } else if (clause == Clause::Condition) {
                i += WriteComparison(i);
            } else if (clause == Clause::Order || clause == Clause::Argument) {
                const Name name = NameAt(i);
                if (m_numberColumns.numbers.contains(name.column))
                    ReadEmptyAsNull(i, name.length);
                i += std::max<std::size_t>(name.length, 1) - 1;
            }
        }
    }

    /// Returns how many tokens are done behind the one at `i`.
    std::size_t WriteComparison(std::size_t i)
    {
        const Name first = NameAt(i);
        const std::size_t left = first.length > 0 ? first.length : LiteralLength(i);
        if (left == 0)
            return 0;
        if (first.length > 0 && IsWord(i + left, u"IS") && m_numberColumns.numbers.contains(first.column))
            ReadEmptyAsNull(i, left);
        if (!IsComparison(i + left))
            return left - 1;
        const std::size_t second = i + left + 1;
        const Name name = first.length > 0 ? first : NameAt(second);
        const std::size_t right = first.length > 0 ? LiteralLength(second) : name.length;
        if (right == 0)
            return left - 1;
        const bool isEqual = IsSymbol(i + left, u"=");
        const std::size_t literal = first.length > 0 ? second : i;
        if (m_numberColumns.compared.contains(name.column) || (m_numberColumns.numbers.contains(name.column) && !isEqual)) {
            Call(kNumberFunction, i, left);
            Call(kNumberFunction, second, right);
        } else if (m_numberColumns.zeroWhereNull.contains(name.column) && m_tokens[literal].text == u"0") {
            const std::size_t column = first.length > 0 ? i : second;
            ReadEmptyAsNull(column, name.length);
            Wrap(column, name.length, u"ifnull("_s, u",0)"_s);
        } else if (m_tokens[literal].kind == TokenKind::Text && HasOtherLetters(m_tokens[literal].text)) {
            Call(kFoldFunction, i, left);
            Call(kFoldFunction, second, right);
        }
        return left + right;
    }

    QString Join(std::size_t from, std::size_t to) const
    {
        QString text;
        for (std::size_t i = from; i < to; ++i) {
            if (m_tokens[i].spaced && !text.isEmpty())
                text += u' ';
            text += m_tokens[i].written;
        }
        return text;
    }

    // A SELECT of plain columns of one table; anything that puts rows together stays read-only.
    void DescribePlainSelect(TranslatedSql& translated) const
    {
        if (!IsWord(0, u"SELECT") || IsAnyWord(1, {u"DISTINCT", u"ALL"}))
            return;
        std::size_t from = 1;
        while (from < m_tokens.size() && !IsWord(from, u"FROM")) {
            if (IsSymbol(from, u"("))
                return;
            ++from;
        }
        const std::size_t table = from + 1;
        if (!IsName(table))
            return;
        const std::size_t behind = table + 1;
        if (behind < m_tokens.size() && !IsAnyWord(behind, {u"WHERE", u"ORDER"}))
            return;
        for (std::size_t i = behind; i < m_tokens.size(); ++i) {
            if (IsAnyWord(i, {u"UNION", u"EXCEPT", u"INTERSECT", u"HAVING"}) || (IsWord(i, u"GROUP") && IsWord(i + 1, u"BY")))
                return;
        }
        const Token& name = m_tokens[table];
        translated.table = (name.kind == TokenKind::Bracketed ? name.text.sliced(1, name.text.size() - 2) : name.text).toString();
        const QString columns = u"SELECT _rowid_, "_s + Join(1, from) + u" FROM "_s + name.written;
        const QString rest = Join(behind, m_tokens.size());
        translated.sqlWithRowId = columns + (rest.isEmpty() ? QString() : u' ' + rest) + m_limit;
        translated.sqlByRowId = columns + u" WHERE _rowid_ = ?"_s;
    }

    std::vector<Token> m_tokens;
    const NumberColumns& m_numberColumns;
    QString m_limit;
};

} // namespace

TranslatedSql TranslateJetSql(const QString& sql, const NumberColumns& numberColumns)
{
    std::optional<std::vector<Token>> tokens = Tokenizer(sql).Run();
    if (!tokens || tokens->empty())
        return {sql, {}, {}, {}};
    return Translator(std::move(*tokens), numberColumns).Run();
}

} // namespace kelvado
