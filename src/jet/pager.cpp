// SPDX-License-Identifier: MIT
#include "jet/pager.h"

#include <algorithm>
#include <cstring>
#include <exception>

#include "files/error.h"
#include "files/messages.h"
#include "jet/error.h"

namespace jet {
namespace {

constexpr std::size_t kReadAhead = 16;  // pages

}  // namespace

Pager::Pager(files::RandomAccessFile& file, std::size_t cache_pages, std::size_t changed_pages,
             OpenScratch open_scratch)
    : file_(file),
      cache_pages_(std::max<std::size_t>(cache_pages, 16)),
      changed_pages_(std::max<std::size_t>(changed_pages, 2)),
      open_scratch_(std::move(open_scratch)),
      put_out_at_(changed_pages_) {
  DropCache();
}

Pager::~Pager() = default;

void Pager::DropCache() {
  assert(level_ == 0);
  while (!clean_.empty()) Drop(clean_.back().get());
  file_pages_ =
      static_cast<PageNumber>(std::min<std::uint64_t>(file_.Size() / kPageSize, kMaxPageCount));
  page_count_ = file_pages_;
  frame_of_page_.assign(page_count_, nullptr);
  lowest_free_ = 0;
  ahead_count_ = 0;
  ++generation_;
}

PageFrame* Pager::Load(PageNumber page) {
  if (page >= page_count_) {
    ThrowDamaged(path(), {page, -1}, message::kEndsBeforePage);
  }
  const auto slot = slots_.find(page);
  if (slot != slots_.end()) return LoadStored(page, slot->second);
  PageFrame* frame = AddFrame(page);
  std::size_t size = 0;
  try {
    size = ReadFile(page, frame->data);
  } catch (...) {
    Drop(frame);
    throw;
  }
  if (size != kPageSize) {
    Drop(frame);
    ThrowDamaged(path(), {page, -1}, message::kEndsWithinPage);
  }
  return frame;
}

void Pager::ReadStored(std::uint32_t slot, std::byte* out) {
  if (scratch_->ReadAt(std::uint64_t{slot} * kPageSize, {out, kPageSize}) != kPageSize) {
    files::Raise(files::ErrorKind::kIo, scratch_->path(), files::message::kCannotBeRead,
                 files::message::kCutMeanwhile);
  }
}

PageFrame* Pager::LoadStored(PageNumber page, std::uint32_t slot) {
  PutOut();
  PageFrame* frame = AddFrame(page);
  try {
    ReadStored(slot, frame->data);
    MakeDirty(frame);
  } catch (...) {
    Drop(frame);
    throw;
  }
  frame->saved_at = 1;
  frame->stored = true;
  return frame;
}

// Goes round as Evict does, some pages at a time.
void Pager::PutOut() {
  if (!open_scratch_ || !can_store_ || dirty_.size() < put_out_at_) return;
  const std::size_t wanted = changed_pages_ - changed_pages_ / 8 - 1;
  for (std::size_t step = 2 * dirty_.size(); step > 0 && dirty_.size() > wanted; --step) {
    if (changed_hand_ >= dirty_.size()) changed_hand_ = 0;
    PageFrame* frame = dirty_[changed_hand_].get();
    const bool may_go = frame->pins == 0 && frame->saved_at == 1 && !frame->referenced;
    if (may_go) {
      if (!Store(*frame)) return;
      Drop(frame);
    } else {
      frame->referenced = false;
      ++changed_hand_;
    }
  }
  // Where few can go the next look comes later, so that a long nested level does not look in vain
  // for every page.
  put_out_at_ = std::max(changed_pages_, 2 * dirty_.size());
  if (dirty_.size() <= wanted) put_out_at_ = changed_pages_;
}

// A medium that is full or that nobody may write costs memory, not the transaction.
bool Pager::Store(PageFrame& frame) noexcept {
  if (frame.stored) return true;
  try {
    if (!scratch_) scratch_ = open_scratch_();
    const auto next = static_cast<std::uint32_t>(slots_.size());
    const std::uint32_t slot = slots_.try_emplace(frame.page, next).first->second;
    scratch_->WriteAt(std::uint64_t{slot} * kPageSize, {frame.data, kPageSize});
    frame.stored = true;
  } catch (const std::exception&) {
    can_store_ = false;
  }
  return frame.stored;
}

void Pager::ForgetStored() noexcept {
  slots_.clear();
  scratch_.reset();
  can_store_ = true;
}

// Who reads pages in rising order is going to read more of them.
std::size_t Pager::ReadFile(PageNumber page, std::byte* out) {
  const std::uint64_t offset = std::uint64_t{page} * kPageSize;
  const bool goes_on = last_read_ != kNoPage && page > last_read_ && page - last_read_ <= 2;
  last_read_ = page;
  if (page - ahead_begin_ >= ahead_count_) {
    if (!goes_on) return file_.ReadAt(offset, {out, kPageSize});
    ahead_count_ = 0;
    ahead_.resize(kReadAhead * kPageSize);
    const std::size_t size = file_.ReadAt(offset, ahead_);
    ahead_begin_ = page;
    ahead_count_ = static_cast<PageNumber>(size / kPageSize);
    if (ahead_count_ == 0) return size;
  }
  std::memcpy(out, &ahead_[std::size_t{page - ahead_begin_} * kPageSize], kPageSize);
  return kPageSize;
}

PageFrame* Pager::AddFrame(PageNumber page) {
  if (clean_.size() >= cache_pages_) Evict();
  auto frame = std::make_unique<PageFrame>();
  frame->storage = std::make_unique_for_overwrite<std::byte[]>(kPageSize);
  frame->data = frame->storage.get();
  frame->page = page;
  frame->position = clean_.size();
  clean_.push_back(std::move(frame));
  frame_of_page_[page] = clean_.back().get();
  return clean_.back().get();
}

// Second chance: a page that was asked for again since the hand passed stays another round. A
// page that only a scan visits is therefore the first to go.
void Pager::Evict() {
  for (std::size_t step = 0; step < 2 * clean_.size(); ++step) {
    if (hand_ >= clean_.size()) hand_ = 0;
    PageFrame* frame = clean_[hand_].get();
    if (frame->pins == 0 && !frame->referenced) {
      Drop(frame);
      return;
    }
    frame->referenced = false;
    ++hand_;
  }
}

namespace {

// Room for one more frame, so that none is lost on its way from one list to the other. Grows by
// factors: a transaction may change every page of the file.
void MakeRoom(std::vector<std::unique_ptr<PageFrame>>& list) {
  if (list.size() == list.capacity()) list.reserve(2 * list.size() + 16);
}

std::unique_ptr<PageFrame> TakeOut(std::vector<std::unique_ptr<PageFrame>>& list,
                                   PageFrame* frame) {
  const std::size_t position = frame->position;
  std::unique_ptr<PageFrame> taken = std::move(list[position]);
  if (position + 1 != list.size()) {
    list[position] = std::move(list.back());
    list[position]->position = position;
  }
  list.pop_back();
  return taken;
}

}  // namespace

void Pager::Drop(PageFrame* frame) noexcept {
  std::unique_ptr<PageFrame> taken = TakeOut(frame->dirty ? dirty_ : clean_, frame);
  if (taken->page < frame_of_page_.size()) frame_of_page_[taken->page] = nullptr;
  std::erase_if(orphans_, [](const auto& orphan) { return orphan->pins == 0; });
  if (taken->pins != 0) orphans_.push_back(std::move(taken));
}

void Pager::MakeDirty(PageFrame* frame) {
  MakeRoom(dirty_);
  std::unique_ptr<PageFrame> taken = TakeOut(clean_, frame);
  frame->position = dirty_.size();
  frame->dirty = true;
  dirty_.push_back(std::move(taken));
}

void Pager::MakeClean(PageFrame* frame) {
  MakeRoom(clean_);
  std::unique_ptr<PageFrame> taken = TakeOut(dirty_, frame);
  frame->position = clean_.size();
  frame->dirty = false;
  frame->stored = false;
  frame->saved_at = 0;
  clean_.push_back(std::move(taken));
}

PageFrame* Pager::Touch(PageNumber page) {
  PutOut();
  PageRef pin = Read(page);
  PageFrame* frame = frame_of_page_[page];
  frame->stored = false;
  if (frame->saved_at == level_) return frame;
  if (level_ > 1) {
    Image image{page, frame->saved_at, nullptr};
    if (frame->dirty) {
      image.bytes = std::make_unique_for_overwrite<std::byte[]>(kPageSize);
      std::memcpy(image.bytes.get(), frame->data, kPageSize);
    }
    levels_.back().images.push_back(std::move(image));
  }
  if (!frame->dirty) MakeDirty(frame);
  frame->saved_at = level_;
  return frame;
}

PageEdit Pager::Append() {
  assert(level_ > 0);
  if (page_count_ >= kMaxPageCount) {
    throw Error(ErrorKind::kTooLarge, path(), {}, message::kDatabaseFull,
                message::kDeleteAndCompact);
  }
  PutOut();
  const PageNumber page = page_count_;
  if (frame_of_page_.size() <= page) frame_of_page_.resize(page + 1, nullptr);
  PageFrame* frame = AddFrame(page);
  ++page_count_;
  std::memset(frame->data, 0, kPageSize);
  if (level_ > 1) levels_.back().images.push_back({page, 0, nullptr});
  MakeDirty(frame);
  frame->saved_at = level_;
  return PageEdit(frame);
}

void Pager::Begin() {
  levels_.push_back({page_count_, lowest_free_, {}});
  ++level_;
}

void Pager::Commit() {
  assert(level_ > 0);
  Level done = std::move(levels_.back());
  levels_.pop_back();
  --level_;
  put_out_at_ = changed_pages_;
  if (level_ == 0) {
    ForgetStored();
    while (!dirty_.empty()) MakeClean(dirty_.back().get());
    file_pages_ = page_count_;
    ahead_count_ = 0;
    while (clean_.size() > cache_pages_) {
      const std::size_t before = clean_.size();
      Evict();
      if (clean_.size() == before) break;
    }
    return;
  }
  for (Image& image : done.images) {
    frame_of_page_[image.page]->saved_at = level_;
    if (level_ > 1 && image.saved_at != level_) levels_.back().images.push_back(std::move(image));
  }
}

void Pager::Rollback() noexcept {
  assert(level_ > 0);
  Level undone = std::move(levels_.back());
  levels_.pop_back();
  --level_;
  put_out_at_ = changed_pages_;
  if (level_ == 0) {
    ForgetStored();
    while (!dirty_.empty()) Drop(dirty_.back().get());
  }
  for (Image& image : undone.images) {
    PageFrame* frame = frame_of_page_[image.page];
    if (!frame) continue;
    if (image.bytes) {
      std::memcpy(frame->data, image.bytes.get(), kPageSize);
      frame->saved_at = image.saved_at;
    } else {
      Drop(frame);
    }
  }
  page_count_ = undone.page_count;
  lowest_free_ = undone.lowest_free;
  ++generation_;
}

std::uint64_t Pager::SizeBefore() { return file_.Size(); }

std::uint64_t Pager::SizeAfter() { return std::uint64_t{page_count_} * kPageSize; }

void Pager::ForEachRange(const std::function<void(const Range&)>& visit) {
  std::vector<PageNumber> pages;
  pages.reserve(dirty_.size() + slots_.size());
  for (const auto& frame : dirty_) {
    if (!slots_.contains(frame->page)) pages.push_back(frame->page);
  }
  for (const auto& [page, slot] : slots_) pages.push_back(page);
  std::sort(pages.begin(), pages.end());
  std::vector<std::byte> before(kPageSize), stored(kPageSize);
  for (const PageNumber page : pages) {
    const PageFrame* frame = frame_of_page_[page];
    if (!frame) ReadStored(slots_.at(page), stored.data());
    const std::byte* after = frame ? frame->data : stored.data();
    const std::uint64_t offset = std::uint64_t{page} * kPageSize;
    if (page >= file_pages_) {
      visit({offset, {}, {after, kPageSize}});
      continue;
    }
    const std::size_t known = file_.ReadAt(offset, {before.data(), kPageSize});
    std::size_t begin = 0, end = known;
    while (begin < end && before[begin] == after[begin]) ++begin;
    while (end > begin && before[end - 1] == after[end - 1]) --end;
    if (begin < end) {
      visit({offset + begin, {&before[begin], end - begin}, {after + begin, end - begin}});
    }
  }
}

}  // namespace jet
