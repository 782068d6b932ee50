#pragma once

#include <string>

#include "core/files/document.h"
#include "units/unit_list.h"

/// What the army list and the army roster have in common: a document with a picture and one list of units.
class CArmyDocument : public CDocument {
  public:
    /// Path of a picture in the text of the document; empty for none. A relative one starts at the application folder.
    const std::string& PictureFile() const { return pictureFile_; }
    void SetPictureFile(const std::string& path) { pictureFile_ = path; }

    CUnitList& ArmyUnits() { return units_; }
    const CUnitList& ArmyUnits() const { return units_; }

    void Clear() override;

  protected:
    /// `keyed`: one entry for each name, in name order; otherwise as the player ordered them.
    explicit CArmyDocument(bool keyed);

    void ResetLists() override { ResetUnits(); }
    bool WriteHead(CProfile& profile) const override;
    void ReadHead(CProfile& profile) override;
    void ImportHead(CSequentialInput& file) override;
    bool WriteLists(CProfile& profile) const override;
    bool ReadLists(CProfile& profile) override;
    bool ImportLists(CSequentialInput& file) override;

  private:
    void ResetUnits();

    std::string pictureFile_;
    CUnitList units_;
    bool keyed_;
};
