#pragma once

#include <QStringList>
#include <string_view>
#include <vector>

/// Finds out whether any entry of a black list is part of an address, whatever their number.
///
/// The entries stand in alphabetic order, without those that begin with another entry: where the longer one is found,
/// the shorter one is too. Among what is left at most one can begin at a given place of an address, and that one is the
/// last in the order that does not come after the rest of the address from that place on. So each place costs one
/// binary search, and no entry costs more memory than its text.
class BlackListSearch
{
public:
    BlackListSearch() = default;
    explicit BlackListSearch(const QStringList &entries);
    BlackListSearch(BlackListSearch &&) = default;
    BlackListSearch &operator=(BlackListSearch &&) = default;

    /// Case counts for nothing: characters are compared one by one after simple case folding. An empty entry is part of
    /// every address.
    bool findsAnyIn(QStringView address) const;

private:
    /// The folded text of all entries.
    std::vector<char16_t> m_text;
    std::vector<std::u16string_view> m_entries;
};
