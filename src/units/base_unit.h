#pragma once

#include <cstdint>
#include <string>

class CProfile;
class CSequentialInput;

/// What single units and squads have in common, and the interface by which wrappers, lists and pages reach either.
/// Costs are points for the whole quantity, doubles, never rounded.
class CBaseUnit {
  public:
    /// `UnitType` of a squad; single units have 0 to 3.
    static constexpr std::int32_t kSquadType = 100;

    virtual ~CBaseUnit() = default;

    const std::string& Name() const { return name_; }
    void SetName(const std::string& name) { name_ = name; }
    const std::string& Descr() const { return descr_; }
    void SetDescr(const std::string& descr) { descr_ = descr; }
    /// Identity inside a keyed list; empty where the list isn't indexed.
    const std::string& Key() const { return key_; }
    void SetKey(const std::string& key) { key_ = key; }
    bool FullInfo() const { return fullInfo_ != 0; }
    void SetFullInfo(bool full);

    std::int16_t Version() const { return version_; }
    void SetVersion(std::int16_t version);
    /// Models in the block, or squads of the kind; a value below 1 becomes 1.
    std::int16_t Quantity() const { return quantity_; }
    virtual void SetQuantity(std::int16_t quantity) = 0;

    virtual std::int32_t UnitType() const = 0;
    virtual double PointCost() const = 0;
    virtual double EquippedPointCost() const = 0;
    virtual void CalculatePointCost() = 0;
    virtual std::string SpecialPropertiesStr() const = 0;

    /// One section of a document. All three give false on any failure; what was read up to there stays.
    virtual bool WriteInfo(CProfile* profile, const std::string& section) const = 0;
    virtual bool ReadInfo(CProfile* profile, const std::string& section) = 0;
    /// A record of the previous release. `readTag` is false when the caller has consumed the tag.
    virtual bool ImportInfoV1(CSequentialInput& file, bool readTag) = 0;

  protected:
    CBaseUnit() = default;
    CBaseUnit(const CBaseUnit&) = default;
    CBaseUnit& operator=(const CBaseUnit&) = default;

    // Steps of the file operations that both kinds share.
    bool WriteIdentity(CProfile& profile, const std::string& section, const char* tag) const;
    bool WriteQuantityAndPoints(CProfile& profile, const std::string& section) const;
    bool ReadIdentity(CProfile& profile, const std::string& section, const char* tag);
    bool ReadQuantityAndPoints(CProfile& profile, const std::string& section);
    /// The header of an old record; gives its version.
    std::int16_t ImportHeader(CSequentialInput& file);

    std::string name_;
    std::string descr_;
    std::string key_;
    // A squad's costs are a cache that each getter renews.
    mutable double pointCost_ = 0;
    mutable double equippedPointCost_ = 0;
    // The word as it was set or read: any word but 0 is true, and a file gets back what it held.
    std::int16_t fullInfo_ = 1;
    std::int16_t version_ = 2;
    std::int16_t quantity_ = 1;
};
