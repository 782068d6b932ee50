#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class CProfile;
class CSequentialInput;

/// The frame that the three working documents share: the head of a file and the order of the steps of saving, reading
/// and importing. A document adds its tag, its lists and what else its head holds.
class CDocument {
  public:
    virtual ~CDocument() = default;

    /// Written to the file, never set from it.
    std::int16_t Version() const { return version_; }
    void SetVersion(std::int16_t version) { version_ = version; }
    const std::string& Name() const { return name_; }
    void SetName(const std::string& name) { name_ = name; }
    const std::string& Descr() const { return descr_; }
    void SetDescr(const std::string& descr) { descr_ = descr; }

    /// Saves the whole document; on false the former file is still there, whole.
    bool WriteInfo(const std::string& path);
    /// Replaces the content by that of a file; on false what was read up to the failure stays.
    bool ReadInfo(const std::string& path);
    /// Likewise, from a file of the previous release.
    bool ImportInfoV1(const std::string& path);

    /// Empties the document; `Version` stays.
    virtual void Clear();

  protected:
    CDocument() = default;
    CDocument(const CDocument&) = default;
    CDocument& operator=(const CDocument&) = default;

    virtual std::string_view Tag() const = 0;
    /// Empties the lists and gives them the flags of the class.
    virtual void ResetLists() = 0;
    virtual bool WriteLists(CProfile& profile) const = 0;
    virtual bool ReadLists(CProfile& profile) = 0;
    virtual bool ImportLists(CSequentialInput& file) = 0;
    /// What the head holds behind the description.
    virtual bool WriteHead(CProfile&) const { return true; }
    virtual void ReadHead(CProfile&) {}
    virtual void ImportHead(CSequentialInput&) {}

  private:
    std::string name_;
    std::string descr_;
    std::int16_t version_ = 0;
};
