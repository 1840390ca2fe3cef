#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace listviews
{
/// The texts of a row's cells, of any bytes, in one block of memory: a cell costs its bytes and
/// eight more, where a string object would cost 32 and a block of its own. Every cell that was
/// never set is empty, however far behind the last one.
///
/// Setting a cell takes the time that its text takes, whatever the other cells hold: bytes that
/// nobody needs any more stay where they are until there is no room, and then all move at once.
/// What would need more than 4 GiB for a row throws `std::length_error`, and nothing has changed.
class PackedRow
{
public:
    PackedRow() = default;
    /// Has room for that many cells, which a row that is filled one by one needs not find again.
    explicit PackedRow(size_t cells);
    PackedRow(const PackedRow& other);
    PackedRow(PackedRow&& other) noexcept = default;
    PackedRow& operator=(const PackedRow& other);
    PackedRow& operator=(PackedRow&& other) noexcept = default;
    ~PackedRow() = default;

    /// Valid until the row changes.
    std::string_view Text(size_t cell) const;
    /// The text may be a part of the row's own.
    void Set(size_t cell, std::string_view text);

    void Insert(size_t cell); ///< An empty one before that one.
    void Erase(size_t cell);  ///< Those behind it come up.
    void Move(size_t from, size_t to);

private:
    /// Where a cell's bytes are, counted from the start of the block.
    struct Cell
    {
        uint32_t start = 0;
        uint32_t size = 0;
    };
    struct Block;
    struct FreeBlock
    {
        void operator()(Block* block) const;
    };
    using BlockPtr = std::unique_ptr<Block, FreeBlock>;

    static BlockPtr NewBlock(size_t cells, size_t bytes);

    size_t Count() const;
    bool   SetInPlace(size_t cell, std::string_view text);
    void   Pack(size_t cells);
    void   PackWith(size_t cells, size_t changed, std::string_view text);
    void   GiveBack();

    BlockPtr m_Block; ///< None: all cells are empty.
};
} // namespace listviews
