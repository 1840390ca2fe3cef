#include "listviews/rows/PackedRow.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

namespace listviews
{
namespace
{
constexpr size_t kMostBytes = std::numeric_limits<uint32_t>::max(); // of a block
constexpr size_t kSpare = 16;    // the part of what is needed that is spared for what comes
constexpr size_t kStep = 64;     // bytes that a block grows by at least
constexpr size_t kHeapBytes = 8; // that the heap adds to a block
constexpr size_t kKept = 4096;   // bytes of a block that are not worth giving back
constexpr size_t kLeastUse = 4;  // the part of a longer block that is in use

// Bytes of a block that fills what the heap gives.
size_t RoomySize(size_t needed)
{
    const size_t roomy = needed + needed / kSpare + kHeapBytes;
    return std::min((roomy + kStep - 1) / kStep * kStep - kHeapBytes, kMostBytes);
}

// How many cells there are when that one is; enough to be refused when it is none.
size_t CountWith(size_t cell)
{
    return std::min(cell, kMostBytes) + 1;
}
} // namespace

// The cells follow it, and then their bytes, in any order and with gaps. Where cells have been
// erased, their places in the table are such a gap.
struct PackedRow::Block
{
    uint32_t size = 0; // of the block, in bytes
    uint32_t end = 0;  // behind the last byte that was given to a cell
    uint32_t count = 0;
    uint32_t used = 0; // bytes of all cells

    Cell*       Cells() { return reinterpret_cast<Cell*>(this + 1); }
    const Cell* Cells() const { return reinterpret_cast<const Cell*>(this + 1); }
    char*       Bytes() { return reinterpret_cast<char*>(this); }
    size_t      Needed() const { return sizeof(Block) + count * sizeof(Cell) + used; }

    std::string_view Text(size_t cell) const
    {
        const Cell& place = Cells()[cell];
        return {reinterpret_cast<const char*>(this) + place.start, place.size};
    }
    /// There is room for it behind the last one.
    void Append(size_t cell, std::string_view text)
    {
        if (!text.empty())
        {
            std::memcpy(Bytes() + end, text.data(), text.size());
            Cells()[cell] = {end, static_cast<uint32_t>(text.size())};
            end += static_cast<uint32_t>(text.size());
            used += static_cast<uint32_t>(text.size());
        }
    }
};

void PackedRow::FreeBlock::operator()(Block* block) const
{
    ::operator delete(block);
}

PackedRow::BlockPtr PackedRow::NewBlock(size_t cells, size_t bytes)
{
    if (cells > kMostBytes / sizeof(Cell) || bytes > kMostBytes ||
        sizeof(Block) + cells * sizeof(Cell) + bytes > kMostBytes)
    {
        throw std::length_error("A row is longer than 4 GiB");
    }
    const size_t before = sizeof(Block) + cells * sizeof(Cell);
    const size_t size = RoomySize(before + bytes);
    BlockPtr     block(new (::operator new(size)) Block);
    block->size = static_cast<uint32_t>(size);
    block->end = static_cast<uint32_t>(before);
    block->count = static_cast<uint32_t>(cells);
    std::uninitialized_default_construct_n(block->Cells(), cells);
    return block;
}

PackedRow::PackedRow(size_t cells) : m_Block(NewBlock(cells, 0))
{
}

PackedRow::PackedRow(const PackedRow& other)
{
    *this = other;
}

PackedRow& PackedRow::operator=(const PackedRow& other)
{
    if (this != &other)
    {
        BlockPtr block;
        if (other.m_Block)
        {
            block = NewBlock(other.Count(), other.m_Block->used);
            for (size_t cell = 0; cell < other.Count(); ++cell)
            {
                block->Append(cell, other.Text(cell));
            }
        }
        m_Block = std::move(block);
    }
    return *this;
}

size_t PackedRow::Count() const
{
    return m_Block ? m_Block->count : 0;
}

std::string_view PackedRow::Text(size_t cell) const
{
    return cell < Count() ? m_Block->Text(cell) : std::string_view();
}

void PackedRow::Set(size_t cell, std::string_view text)
{
    if (cell >= Count() && text.empty())
    {
        return;
    }
    if (cell >= Count() || !SetInPlace(cell, text))
    {
        PackWith(std::max(Count(), CountWith(cell)), cell, text);
    }
    GiveBack();
}

// Where the cell's bytes are, or behind all others.
bool PackedRow::SetInPlace(size_t cell, std::string_view text)
{
    Cell&        place = m_Block->Cells()[cell];
    const bool   isLast = place.start + place.size == m_Block->end;
    const bool   stays = isLast || text.size() <= place.size;
    const size_t start = stays ? place.start : m_Block->end;
    if (text.size() > m_Block->size - start)
    {
        return false;
    }
    if (!text.empty())
    {
        std::memmove(m_Block->Bytes() + start, text.data(), text.size());
    }
    const auto size = static_cast<uint32_t>(text.size());
    m_Block->used += size - place.size;
    place = {static_cast<uint32_t>(start), size};
    if (isLast || !stays)
    {
        m_Block->end = place.start + size;
    }
    return true;
}

void PackedRow::Pack(size_t cells)
{
    PackWith(cells, cells, {});
}

// The old block stays until the new one is whole: the text may lie in it. The changed cell comes
// last, where it may become longer: the next one that changes is often the same.
void PackedRow::PackWith(size_t cells, size_t changed, std::string_view text)
{
    const size_t kept = (m_Block ? m_Block->used : 0) - Text(changed).size();
    BlockPtr     block = NewBlock(cells, kept + std::min(text.size(), kMostBytes));
    for (size_t cell = 0, count = Count(); cell < count; ++cell)
    {
        if (cell != changed)
        {
            block->Append(cell, m_Block->Text(cell));
        }
    }
    if (changed < cells)
    {
        block->Append(changed, text);
    }
    m_Block = std::move(block);
}

void PackedRow::GiveBack()
{
    if (m_Block->size > kKept && m_Block->Needed() < m_Block->size / kLeastUse)
    {
        Pack(Count());
    }
}

void PackedRow::Insert(size_t cell)
{
    if (cell < Count())
    {
        Move(Count(), cell);
    }
}

void PackedRow::Erase(size_t cell)
{
    if (cell >= Count())
    {
        return;
    }
    Cell* const cells = m_Block->Cells();
    m_Block->used -= cells[cell].size;
    std::copy(cells + cell + 1, cells + Count(), cells + cell);
    --m_Block->count;
    GiveBack();
}

void PackedRow::Move(size_t from, size_t to)
{
    if (std::min(from, to) >= Count())
    {
        return;
    }
    if (std::max(from, to) >= Count())
    {
        Pack(CountWith(std::max(from, to)));
    }
    Cell* const cells = m_Block->Cells();
    if (from < to)
    {
        std::rotate(cells + from, cells + from + 1, cells + to + 1);
    }
    else
    {
        std::rotate(cells + to, cells + from, cells + from + 1);
    }
}
} // namespace listviews
