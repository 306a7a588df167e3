// SPDX-License-Identifier: MIT
#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "files/change_set.h"
#include "files/random_access_file.h"
#include "jet/page.h"

namespace jet {

// A page in memory. Owned by the Pager.
struct PageFrame {
  PageNumber page = kNoPage;
  std::uint32_t pins = 0;
  bool dirty = false;
  bool referenced = false;     // used since the replacement hand last passed
  bool stored = false;         // the scratch file has the same bytes
  std::uint32_t saved_at = 0;  // innermost transaction level that can return to its own state
  std::size_t position = 0;    // in the pager's list of clean or of dirty frames
  std::unique_ptr<std::byte[]> storage;
  std::byte* data = nullptr;
};

// Keeps a page in memory for as long as it lives.
class PageRef {
 public:
  PageRef() = default;
  explicit PageRef(PageFrame* frame) : frame_(frame) { ++frame_->pins; }
  PageRef(const PageRef& other) : frame_(other.frame_) {
    if (frame_) ++frame_->pins;
  }
  PageRef(PageRef&& other) noexcept : frame_(std::exchange(other.frame_, nullptr)) {}
  PageRef& operator=(PageRef other) noexcept {
    std::swap(frame_, other.frame_);
    return *this;
  }
  ~PageRef() {
    if (frame_) --frame_->pins;
  }

  explicit operator bool() const { return frame_ != nullptr; }
  PageNumber number() const { return frame_->page; }
  const std::byte* data() const { return frame_->data; }
  std::span<const std::byte, kPageSize> bytes() const {
    return std::span<const std::byte, kPageSize>(frame_->data, kPageSize);
  }

 protected:
  PageFrame* frame_ = nullptr;
};

// A page that may be changed. Ask the Pager for it again after a savepoint was set.
class PageEdit : public PageRef {
 public:
  using PageRef::PageRef;
  std::byte* data() const { return frame_->data; }
  std::span<std::byte, kPageSize> bytes() const {
    return std::span<std::byte, kPageSize>(frame_->data, kPageSize);
  }
};

// The pages of one database file: a cache of bounded size, and the transaction over it.
//
// 1. Nothing is written to the file before the commit, so a rollback only forgets; a page that
//    changed stays in memory until then, or in a scratch file when there are many. 2. The state
//    before comes from the file itself, which nobody changes while the write lock is held.
//    3. Inside a transaction nested levels keep images of the pages they change first. 4. Only the
//    outermost level's pages go to the scratch file: what a nested level may have to put back is in
//    memory.
class Pager final : public files::RangeSource {
 public:
  // Opens an empty file that goes when it is closed.
  using OpenScratch = std::function<std::unique_ptr<files::RandomAccessFile>()>;

  // `file` must outlive the pager. At most `cache_pages` unchanged pages are kept. Of more than
  // `changed_pages` some are moved to a scratch file, as long as there is room for that; without
  // `open_scratch` all stay.
  Pager(files::RandomAccessFile& file, std::size_t cache_pages, std::size_t changed_pages = 0,
        OpenScratch open_scratch = {});
  ~Pager() override;

  const std::string& path() const { return file_.path(); }
  // Pages of the file, those included that the open transaction added.
  PageNumber page_count() const { return page_count_; }

  // The page as the open transaction sees it. Raises kDamaged for a page behind the end.
  PageRef Read(PageNumber page) {
    if (page < frame_of_page_.size()) {
      if (PageFrame* frame = frame_of_page_[page]) {
        frame->referenced = true;
        return PageRef(frame);
      }
    }
    return PageRef(Load(page));
  }
  // The page for changing it; asks for an open transaction.
  PageEdit Modify(PageNumber page) {
    assert(level_ > 0);
    if (page < frame_of_page_.size()) {
      PageFrame* frame = frame_of_page_[page];
      if (frame && frame->dirty && frame->saved_at == level_ && !frame->stored) {
        frame->referenced = true;
        return PageEdit(frame);
      }
    }
    return PageEdit(Touch(page));
  }

  // A page filled with zeros: the lowest free one, or a new one at the end of the file. Raises
  // kTooLarge at 2 GiB, and kDamaged when the map of free pages names a page that is in use.
  PageEdit Allocate();
  // Gives a page back to the map of free pages. Its contents stay, marked as released. Raises
  // kDamaged when the map has it as free already.
  void Free(PageNumber page);

  // Transactions nest; level 1 is the outermost. Commit of level 1 only ends the transaction:
  // before it, the changes have to be carried into the file from this RangeSource.
  int level() const { return static_cast<int>(level_); }
  void Begin();
  void Commit();
  void Rollback() noexcept;
  bool HasChanges() const { return !dirty_.empty() || !slots_.empty(); }

  // Forgets all unchanged pages, because the file changed. Not in a transaction.
  void DropCache();
  // Rises when pages may have gone back to earlier contents: by a rollback, or because the cache
  // was dropped.
  std::uint64_t generation() const { return generation_; }

  // files::RangeSource: what the outermost transaction changes.
  files::RandomAccessFile& File() override { return file_; }
  std::uint64_t SizeBefore() override;
  std::uint64_t SizeAfter() override;
  void ForEachRange(const std::function<void(const Range&)>& visit) override;

 private:
  // What a nested level returns to.
  struct Image {
    PageNumber page = 0;
    std::uint32_t saved_at = 0;
    std::unique_ptr<std::byte[]> bytes;  // none: the page was unchanged
  };
  struct Level {
    PageNumber page_count = 0;
    PageNumber lowest_free = 0;
    std::vector<Image> images;
  };

  PageFrame* Load(PageNumber page);  // reads a page that is not in memory
  std::size_t ReadFile(PageNumber page, std::byte* out);
  PageFrame* LoadStored(PageNumber page, std::uint32_t slot);
  void ReadStored(std::uint32_t slot, std::byte* out);
  void PutOut();  // moves pages to the scratch file when too many have changed
  bool Store(PageFrame& frame) noexcept;
  void ForgetStored() noexcept;
  PageFrame* Touch(PageNumber page);  // makes a page changeable at the current level
  PageFrame* AddFrame(PageNumber page);
  void Evict();
  void Drop(PageFrame* frame) noexcept;  // forgets the page
  void MakeDirty(PageFrame* frame);
  void MakeClean(PageFrame* frame);
  PageEdit Append();  // the page behind the last one
  void RequireUnused(PageNumber page);

  friend class FreePageMap;

  files::RandomAccessFile& file_;
  std::size_t cache_pages_;
  PageNumber page_count_ = 0;
  PageNumber file_pages_ = 0;              // pages that are in the file
  std::vector<PageFrame*> frame_of_page_;  // by page number; null: not in memory
  std::vector<std::unique_ptr<PageFrame>> clean_;
  std::vector<std::unique_ptr<PageFrame>> dirty_;
  std::vector<std::unique_ptr<PageFrame>> orphans_;  // dropped while somebody held them
  std::size_t hand_ = 0;                             // of the replacement, in clean_
  std::size_t changed_pages_;
  OpenScratch open_scratch_;
  std::unique_ptr<files::RandomAccessFile> scratch_;  // of the open transaction
  bool can_store_ = true;                             // no failure of the scratch file yet
  std::size_t put_out_at_ = 0;                        // so many frames in dirty_
  std::size_t changed_hand_ = 0;                      // of putting out, in dirty_
  // Places in the scratch file. A page that has one and no frame is what stands there.
  std::unordered_map<PageNumber, std::uint32_t> slots_;
  // Pages read in advance, because those before them were asked for one after the other.
  std::vector<std::byte> ahead_;
  PageNumber ahead_begin_ = 0;
  PageNumber ahead_count_ = 0;
  PageNumber last_read_ = kNoPage;
  std::uint32_t level_ = 0;
  std::vector<Level> levels_;
  PageNumber lowest_free_ = 0;  // no page below it is free
  // What the file refers to, looked up when a page that the map has as free does not look so.
  std::vector<bool> in_use_;
  std::uint64_t in_use_generation_ = 0;  // of in_use_; 0: not looked up
  std::uint64_t generation_ = 0;
};

}  // namespace jet
