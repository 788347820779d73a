#pragma once

#include "browse/TreeNodes.h"
#include "fakes/FakePictureBox.h"

#include <map>
#include <vector>

/// Images in memory, each remembered as what the picture box showed. Works with FakePictureBox only.
class FakeNodeImages final : public NodeImages {
public:
    bool refuses = false;

    [[nodiscard]] int Find(std::int32_t iconNumber) const override {
        const auto found = byNumber_.find(iconNumber);
        return found == byNumber_.end() ? -1 : found->second;
    }
    int Add(const PictureBox& picture, std::int32_t iconNumber) override {
        if (refuses) {
            return -1;
        }
        pictures_.push_back(dynamic_cast<const FakePictureBox&>(picture).Shown());
        return byNumber_[iconNumber] = static_cast<int>(pictures_.size()) - 1;
    }
    void Clear() override {
        pictures_.clear();
        byNumber_.clear();
    }

    [[nodiscard]] const std::vector<std::wstring>& Pictures() const { return pictures_; }

private:
    std::vector<std::wstring> pictures_;
    std::map<std::int32_t, int> byNumber_;
};
