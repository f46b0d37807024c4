#include "contract/TrashContract.h"
#include "support/FakeTrash.h"

namespace blankwell {
namespace {

class FakeTrashWorld {
public:
    Trash& trash() { return trash_; }

    FileUrl add(std::string_view name) {
        auto item = FileUrl("/folder").appending(name);
        files_.addFolder(item.path());
        return item;
    }

    bool stands(const FileUrl& url) const { return files_.folders.contains(url); }

    void settle() {
        while (trash_.answer()) {
        }
    }

private:
    EventLog events_;
    FakeFileSystem files_{events_};
    FakeTrash trash_{events_, files_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Double, TrashContract, FakeTrashWorld);

} // namespace
} // namespace blankwell
