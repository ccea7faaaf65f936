// B-curve defining data: from transient into persistent memory.
#include <cstring>

#include "curve/bcdf.h"

using namespace ztmath;

namespace {

constexpr Module module = bcdf_module.part(3);

/// Makes persistent copies, and knows whether all of them could be made.
class Keeper {
  public:
    bool failed() const { return failed_; }

    /// A copy of a block, byte for byte; null for null.
    template <class T>
    T* keep(T* block) {
        if (block == nullptr) return nullptr;
        const std::size_t bytes = SM_length(block);
        void* copy = SM_calloc_persistent(1, bytes);
        if (copy != nullptr) return static_cast<T*>(std::memcpy(copy, block, bytes));
        failed_ = true;
        module.internal("Failed to allocate permanent memory for transient conversion of %d bytes",
                        static_cast<int>(bytes));
        return nullptr;
    }

    /// A copy of a list with its array; an array that is not the list's is shared.
    PNTLST* keep_list(PNTLST* list) {
        PNTLST* block = keep(list);
        if (block == nullptr || list->points_allocated == 0) return block;
        block->points = nullptr;
        ListOwner copy(block);
        copy->points = keep(list->points);
        return copy.release();
    }

  private:
    bool failed_ = false;
};

/// A copy of the record that does not own anything yet; null if there is no memory for it.
BCDF* keep_alone(Keeper& keeper, BCDF* record) {
    BCDF* copy = keeper.keep(record);
    if (copy == nullptr) return nullptr;
    for (const auto list : record_lists)
        copy->*list = nullptr;
    copy->slope_types = copy->curvature_types = nullptr;
    return copy;
}

}  // namespace

BCDF* BCDF_make_bcdf_data_persistent(BCDF* record) {
    Keeper keeper;
    RecordOwner copy(keep_alone(keeper, record));
    if (copy.get() == nullptr) return nullptr;
    for (const auto list : record_lists)
        copy.get()->*list = keeper.keep_list(record->*list);
    copy->slope_types = keeper.keep(record->slope_types);
    copy->curvature_types = keeper.keep(record->curvature_types);
    if (keeper.failed()) return nullptr;
    BCDF_free_structure(record);
    return copy.release();
}
