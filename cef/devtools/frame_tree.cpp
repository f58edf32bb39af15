#include "devtools/frame_tree.h"

namespace cefedition {

FrameTree::FrameTree(std::weak_ptr<BrowserCore> core)
    : core_(core), main_(new EditionFrame(core, {}, {}, /*is_main=*/true)) {}

CefRefPtr<EditionFrame> FrameTree::main() const {
  std::lock_guard hold(lock_);
  return main_;
}

void FrameTree::SetMainId(const std::string& id) {
  std::lock_guard hold(lock_);
  frames_.erase(main_->id());
  main_->SetId(id);
  frames_[id] = main_;
}

bool FrameTree::IsMain(const std::string& id) const {
  std::lock_guard hold(lock_);
  return main_->id() == id;
}

CefRefPtr<EditionFrame> FrameTree::Find(const std::string& id) const {
  std::lock_guard hold(lock_);
  const auto found = frames_.find(id);
  return found != frames_.end() ? found->second : nullptr;
}

CefRefPtr<EditionFrame> FrameTree::FindByName(const std::string& name) const {
  for (const CefRefPtr<EditionFrame>& frame : All()) {
    if (frame->name() == name) {
      return frame;
    }
  }
  return nullptr;
}

std::vector<CefRefPtr<EditionFrame>> FrameTree::All() const {
  std::lock_guard hold(lock_);
  std::vector<CefRefPtr<EditionFrame>> all = {main_};
  for (const auto& [id, frame] : frames_) {
    if (frame != main_) {
      all.push_back(frame);
    }
  }
  return all;
}

CefRefPtr<EditionFrame> FrameTree::Touch(const std::string& id, const std::string& parent_id) {
  if (CefRefPtr<EditionFrame> known = Find(id)) {
    return known;
  }
  if (parent_id.empty()) {
    SetMainId(id);
    return main();
  }
  std::lock_guard hold(lock_);
  CefRefPtr<EditionFrame> frame = new EditionFrame(core_, id, parent_id, /*is_main=*/false);
  frames_[id] = frame;
  return frame;
}

void FrameTree::Remove(const std::string& id) {
  std::lock_guard hold(lock_);
  const auto found = frames_.find(id);
  if (found == frames_.end() || found->second == main_) {
    return;
  }
  std::vector<std::string> removed;
  RemoveBelowLocked(id, removed);
  found->second->Invalidate();
  frames_.erase(id);
}

std::vector<std::string> FrameTree::RemoveBelow(const std::string& id) {
  std::lock_guard hold(lock_);
  std::vector<std::string> removed;
  RemoveBelowLocked(id, removed);
  return removed;
}

void FrameTree::RemoveBelowLocked(const std::string& id, std::vector<std::string>& removed) {
  std::vector<std::string> children;
  for (const auto& [child_id, frame] : frames_) {
    if (!id.empty() && frame->parent_id() == id) {
      children.push_back(child_id);
    }
  }
  for (const std::string& child : children) {
    RemoveBelowLocked(child, removed);
    removed.push_back(child);
    frames_[child]->Invalidate();
    frames_.erase(child);
  }
}

void FrameTree::Clear() {
  std::lock_guard hold(lock_);
  for (const auto& [id, frame] : frames_) {
    frame->Invalidate();
  }
  main_->Invalidate();
  frames_.clear();
}

}  // namespace cefedition
