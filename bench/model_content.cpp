#include "bench/model_content.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace bench {

namespace {

// Shares of 1000 instances in five exported models of 2.4 to 3.5 MB (three authoring systems, both
// releases, 39 to 59 thousand instances of 58 to 68 bytes), averaged: points 226, loops, bounds and
// faces 390 (130 each), property values 73, relations of sets 35, sets 29, placements and their
// axes 55, quantities 30, shapes 25, styles 9. These numbers come near to it.
constexpr int kBrepPercent = 70;  // of the bodies; the others are extruded rectangles
constexpr int kTriangulatedPercent =
    20;  // of the breps; the others have rectangles between two outlines
constexpr int kMinOutlinePairs = 3;  // an outline has as many corners in front as behind
constexpr int kMaxOutlinePairs = 10;
constexpr int kMinWallsOfFamily = 2;  // a family shares a type, a material and two property sets
constexpr int kMaxWallsOfFamily = 10;

constexpr std::int64_t kBytesPerStorey = 5'000'000;
constexpr std::int64_t kMaxStoreys = 24;
constexpr std::size_t kMaxBatchInstances = 20'000;
constexpr std::size_t kMinBatchInstances = 500;
constexpr std::int64_t kInstancesOfSmallModelPerMegabyte = 16'000;
constexpr std::int64_t kTimeStamp = 1'482'339'244;

enum class Values { kLabel, kText, kMark, kTruth, kWhole, kMeasure };

struct PropertyPattern {
    std::string_view name;
    std::string_view type;
    Values values;
};

constexpr std::array kWallCommon = {
    PropertyPattern{"IsExternal", "IFCBOOLEAN", Values::kTruth},
    PropertyPattern{"LoadBearing", "IFCBOOLEAN", Values::kTruth},
    PropertyPattern{"FireRating", "IFCLABEL", Values::kLabel},
    PropertyPattern{"ThermalTransmittance", "IFCTHERMALTRANSMITTANCEMEASURE", Values::kMeasure},
    PropertyPattern{"Reference", "IFCIDENTIFIER", Values::kMark},
};
constexpr std::array kPhasing = {
    PropertyPattern{"Phase Created", "IFCLABEL", Values::kLabel},
    PropertyPattern{R"(Gewerk f\X2\00FC\X0\r Ausschreibung)", "IFCLABEL", Values::kLabel},
};
constexpr std::array kConstraints = {
    PropertyPattern{"Base Constraint", "IFCLABEL", Values::kLabel},
    PropertyPattern{"Room Bounding", "IFCBOOLEAN", Values::kTruth},
    PropertyPattern{"Top Offset", "IFCLENGTHMEASURE", Values::kMeasure},
    PropertyPattern{"Comments", "IFCTEXT", Values::kText},
};
constexpr std::array kDimensions = {
    PropertyPattern{"Length", "IFCLENGTHMEASURE", Values::kMeasure},
    PropertyPattern{"Area", "IFCAREAMEASURE", Values::kMeasure},
    PropertyPattern{"Volume", "IFCVOLUMEMEASURE", Values::kMeasure},
    PropertyPattern{"Layer Count", "IFCINTEGER", Values::kWhole},
};

constexpr std::array<std::string_view, 10> kLabels = {
    "Existing",   "New Construction",        "F 90-A",
    "Level 1",    "Kalksandstein 175",       R"(Au\X2\00DF\X0\enwand, tragend)",
    R"(B\S\vro)", R"(\X2\58C130FB5916\X0\)", "W''all finish, type 2 (see A-301)",
    "2 hr",
};
constexpr std::array<std::string_view, 4> kTexts = {
    "",
    "Cast in situ, sealed at the base; check with structural drawings before ordering",
    R"(Pr\X\FCfung nach Rohbau)",
    "See detail 4/A-512",
};
constexpr std::array<std::string_view, 6> kMaterials = {
    "Concrete C30/37", "Brick",         "Gypsum board",
    "Mineral wool",    "Kalksandstein", R"(D\X2\00E4\X0\mmung, hart)"};

/// Pseudo-random numbers (splitmix64), the same everywhere, which the distributions of <random> are
/// not. Draw into a variable before a call: the order of arguments is up to the compiler.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = state_;
        bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
        return bits ^ (bits >> 31);
    }
    /// Both ends included.
    std::int64_t between(std::int64_t low, std::int64_t high) {
        return low + static_cast<std::int64_t>(next() % static_cast<std::uint64_t>(high - low + 1));
    }
    bool chance(int percent) { return between(0, 99) < percent; }
    template <class Range>
    auto oneOf(const Range& range) {
        return range[next() % range.size()];
    }

private:
    std::uint64_t state_;
};

/// Millimetres as a length in metres.
constexpr Decimal metres(std::int64_t millimetres) { return {millimetres, 3}; }

class ModelWriter {
public:
    ModelWriter(std::ostream& out, const ModelOptions& options)
        : out_(out),
          options_(options),
          random_(options.seed),
          numbering_(options.numberGaps),
          storeyCount_(
              std::clamp<std::int64_t>(options.targetBytes / kBytesPerStorey, 2, kMaxStoreys)),
          batchLimit_(std::clamp(static_cast<std::size_t>(options.targetBytes / 1'000'000 *
                                                          kInstancesOfSmallModelPerMegabyte / 20),
                                 kMinBatchInstances, kMaxBatchInstances)) {}

    WrittenCounts write() {
        writeText(headerText());
        addFrame();
        writeBatch();
        numberFrame();
        startBatch();
        for (std::int64_t storey = 0; storey < storeyCount_; ++storey)
            addStoreyContent(storey);
        writeText("ENDSEC;\nEND-ISO-10303-21;\n");
        return total_;
    }

private:
    /// What every file has once: instances of the first batch, later known by their numbers.
    struct Frame {
        Ref history, modelContext, bodyContext, axisContext, axisZ, millimetre;
        std::vector<Ref> directions, styles, materials, storeys, storeyPlacements;
    };

    bool ifc4() const { return options_.release == SchemaRelease::kIfc4; }

    /// An attribute that IFC2X3 does not have.
    template <class Value>
    std::optional<Value> onlyIfc4(Value value) const {
        return ifc4() ? std::optional(value) : std::nullopt;
    }

    void writeText(std::string_view text) {
        out_.write(text.data(), static_cast<std::streamsize>(text.size()));
        total_.bytes += static_cast<std::int64_t>(text.size());
    }

    std::string headerText() const {
        const std::string_view view = ifc4() ? "ReferenceView_V1.2" : "CoordinationView_V2.0";
        const std::string_view schema = ifc4() ? "IFC4" : "IFC2X3";
        return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION(('ViewDefinition [" + std::string(view) +
               "]'),'2;1');\nFILE_NAME('benchmark.ifc','2016-12-21T17:54:06',('Architect'),"
               "('Office'),'Quillet','Quillet','');\nFILE_SCHEMA(('" +
               std::string(schema) + "'));\nENDSEC;\nDATA;\n";
    }

    /// 128 random bits as the 22 characters of a global identifier.
    std::string newGuid() {
        constexpr std::string_view kDigits =
            "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$";
        constexpr int kDigitsOfOneDraw = 10;  // of 6 bits each
        std::string guid(1, kDigits[random_.next() % 4]);
        std::uint64_t bits = 0;
        for (int i = 0; i < 21; ++i) {
            if (i % kDigitsOfOneDraw == 0)
                bits = random_.next();
            guid.push_back(kDigits[bits % 64]);
            bits /= 64;
        }
        return guid;
    }

    /// An instance with the attributes that everything with a global identifier begins with.
    template <class Name, class... Args>
    Ref addRooted(std::string_view type, Name name, const Args&... args) {
        const std::string guid = newGuid();
        return batch_.add(type, Text{guid}, frame_.history, name, kAbsent, args...);
    }

    Ref addPoint(std::initializer_list<Decimal> coordinates) {
        return batch_.add("IFCCARTESIANPOINT", std::vector<Decimal>(coordinates));
    }

    Ref addDirection(std::initializer_list<std::int64_t> thousandths) {
        std::vector<Decimal> ratios;
        for (const std::int64_t ratio : thousandths)
            ratios.push_back({ratio, 3});
        return batch_.add("IFCDIRECTION", ratios);
    }

    Ref addPlacementAt(Ref point, std::optional<Ref> relativeTo) {
        const Ref axes = batch_.add("IFCAXIS2PLACEMENT3D", point, frame_.axisZ,
                                    random_.oneOf(frame_.directions));
        return relativeTo ? batch_.add("IFCLOCALPLACEMENT", *relativeTo, axes)
                          : batch_.add("IFCLOCALPLACEMENT", kAbsent, axes);
    }

    void addFrame();
    Ref addUnits();
    void addContexts();
    void addStyles();
    void addMaterials();
    void addSpatialStructure(Ref project);

    void addStoreyContent(std::int64_t storey);
    void addFamily(std::int64_t storey);
    Ref addWall(std::int64_t storey, std::span<const Ref> familyProperties);
    Ref addBody();
    Ref addExtrusion();
    Ref addFacetedBrep(bool triangulated);
    void addFace(std::initializer_list<Ref> points) { addFace(std::vector<Ref>(points)); }
    void addFace(const std::vector<Ref>& points);

    template <std::size_t kCount>
    std::vector<Ref> addProperties(const std::array<PropertyPattern, kCount>& patterns) {
        std::vector<Ref> properties;
        for (const PropertyPattern& pattern : patterns)
            properties.push_back(addProperty(pattern));
        return properties;
    }
    Ref addProperty(const PropertyPattern& pattern);
    void addSet(std::string_view name, const std::vector<Ref>& properties,
                const std::vector<Ref>& objects);
    void addQuantities(Ref wall);
    Ref addQuantity(std::string_view type, std::string_view name);

    bool refersForward() const { return order_ == LineOrder::kReferredLast; }
    /// Whether what is written and the batch, written in the usual order, would have too few
    /// forward references.
    bool belowForwardShare() const {
        const std::int64_t instances = total_.instances + static_cast<std::int64_t>(batch_.size());
        return total_.forward * 100 < instances * options_.forwardPercent;
    }
    void writeBatch();
    void startBatch();
    void numberFrame();

    std::ostream& out_;
    const ModelOptions options_;
    Random random_;
    Numbering numbering_;
    const std::int64_t storeyCount_;
    const std::size_t batchLimit_;
    Batch batch_;
    LineOrder order_ = LineOrder::kReferredFirst;
    WrittenCounts total_;
    Frame frame_;
    std::vector<Ref> faces_;          // of the body in work
    std::vector<Ref> wallsOfStorey_;  // those of the current batch last
    std::size_t writtenWalls_ = 0;    // so many of them have their numbers
    std::int64_t wallCount_ = 0;
};

void ModelWriter::addFrame() {
    const Ref person = batch_.add("IFCPERSON", kAbsent, Text{"Architect"}, kAbsent, kAbsent,
                                  kAbsent, kAbsent, kAbsent, kAbsent);
    const Ref organization =
        batch_.add("IFCORGANIZATION", kAbsent, Text{"Office"}, kAbsent, kAbsent, kAbsent);
    const Ref user = batch_.add("IFCPERSONANDORGANIZATION", person, organization, kAbsent);
    const Ref application =
        batch_.add("IFCAPPLICATION", organization, Text{"1.0"}, Text{"Quillet"}, Text{"Quillet"});
    frame_.history = batch_.add("IFCOWNERHISTORY", user, application, kAbsent, Raw{".ADDED."},
                                kAbsent, kAbsent, kAbsent, Integer{kTimeStamp});
    const Ref units = addUnits();
    addContexts();
    addStyles();
    addMaterials();
    const Ref project = addRooted("IFCPROJECT", Text{"Benchmark"}, kAbsent, kAbsent, kAbsent,
                                  std::vector<Ref>{frame_.modelContext}, units);
    addSpatialStructure(project);
}

Ref ModelWriter::addUnits() {
    const auto siUnit = [this](std::string_view type, std::string_view name) {
        return batch_.add("IFCSIUNIT", Raw{"*"}, Raw{type}, kAbsent, Raw{name});
    };
    const Ref length = siUnit(".LENGTHUNIT.", ".METRE.");
    const Ref area = siUnit(".AREAUNIT.", ".SQUARE_METRE.");
    const Ref volume = siUnit(".VOLUMEUNIT.", ".CUBIC_METRE.");
    const Ref time = siUnit(".TIMEUNIT.", ".SECOND.");
    const Ref mass =
        batch_.add("IFCSIUNIT", Raw{"*"}, Raw{".MASSUNIT."}, Raw{".KILO."}, Raw{".GRAM."});
    const Ref kelvin = siUnit(".THERMODYNAMICTEMPERATUREUNIT.", ".KELVIN.");
    const Ref radian = siUnit(".PLANEANGLEUNIT.", ".RADIAN.");
    const Ref factor = batch_.add(
        "IFCMEASUREWITHUNIT", Typed{"IFCPLANEANGLEMEASURE", Decimal{174'532'925'199, 13}}, radian);
    const Integer zero{0};
    const Ref exponents =
        batch_.add("IFCDIMENSIONALEXPONENTS", zero, zero, zero, zero, zero, zero, zero);
    const Ref degree = batch_.add("IFCCONVERSIONBASEDUNIT", exponents, Raw{".PLANEANGLEUNIT."},
                                  Text{"DEGREE"}, factor);
    frame_.millimetre =
        batch_.add("IFCSIUNIT", Raw{"*"}, Raw{".LENGTHUNIT."}, Raw{".MILLI."}, Raw{".METRE."});
    const Ref watt = siUnit(".POWERUNIT.", ".WATT.");
    const std::vector<Ref> transmittance = {
        batch_.add("IFCDERIVEDUNITELEMENT", watt, Integer{1}),
        batch_.add("IFCDERIVEDUNITELEMENT", length, Integer{-2}),
        batch_.add("IFCDERIVEDUNITELEMENT", kelvin, Integer{-1}),
    };
    const Ref derived =
        batch_.add("IFCDERIVEDUNIT", transmittance, Raw{".THERMALTRANSMITTANCEUNIT."}, kAbsent);
    return batch_.add("IFCUNITASSIGNMENT",
                      std::vector<Ref>{length, area, volume, time, mass, kelvin, degree, derived});
}

void ModelWriter::addContexts() {
    frame_.axisZ = addDirection({0, 0, 1000});
    frame_.directions = {addDirection({1000, 0, 0}), addDirection({0, 1000, 0}),
                         addDirection({-1000, 0, 0}), addDirection({0, -1000, 0})};
    const Ref origin = addPoint({metres(0), metres(0), metres(0)});
    const Ref system =
        batch_.add("IFCAXIS2PLACEMENT3D", origin, frame_.axisZ, frame_.directions.front());
    frame_.modelContext = batch_.add("IFCGEOMETRICREPRESENTATIONCONTEXT", kAbsent, Text{"Model"},
                                     Integer{3}, Decimal{1, 5}, system, addDirection({0, 1000}));
    const auto subContext = [this](std::string_view identifier, std::string_view view) {
        const Raw derived{"*"};
        return batch_.add("IFCGEOMETRICREPRESENTATIONSUBCONTEXT", Text{identifier}, Text{"Model"},
                          derived, derived, derived, derived, frame_.modelContext, kAbsent,
                          Raw{view}, kAbsent);
    };
    frame_.bodyContext = subContext("Body", ".MODEL_VIEW.");
    frame_.axisContext = subContext("Axis", ".GRAPH_VIEW.");
}

void ModelWriter::addStyles() {
    constexpr std::int64_t kStyles = 12;
    for (std::int64_t i = 0; i < kStyles; ++i) {
        const Decimal grey{400 + 50 * i, 3};
        const Ref colour =
            batch_.add("IFCCOLOURRGB", kAbsent, grey, grey, Decimal{1000 - 50 * i, 3});
        const Ref rendering =
            batch_.add("IFCSURFACESTYLERENDERING", colour, Decimal{0, 1}, kAbsent, kAbsent, kAbsent,
                       kAbsent, kAbsent, kAbsent, Raw{".NOTDEFINED."});
        const Ref style = batch_.add("IFCSURFACESTYLE", Text{"Finish"}, Raw{".BOTH."},
                                     std::vector<Ref>{rendering});
        frame_.styles.push_back(
            ifc4() ? style : batch_.add("IFCPRESENTATIONSTYLEASSIGNMENT", std::vector<Ref>{style}));
    }
}

void ModelWriter::addMaterials() {
    for (const std::string_view name : kMaterials) {
        const Ref material =
            batch_.add("IFCMATERIAL", Text{name}, onlyIfc4(kAbsent), onlyIfc4(kAbsent));
        const Ref layer =
            batch_.add("IFCMATERIALLAYER", material, metres(175), Raw{".U."}, onlyIfc4(kAbsent),
                       onlyIfc4(kAbsent), onlyIfc4(kAbsent), onlyIfc4(kAbsent));
        frame_.materials.push_back(batch_.add("IFCMATERIALLAYERSET", std::vector<Ref>{layer},
                                              Text{name}, onlyIfc4(kAbsent)));
    }
}

void ModelWriter::addSpatialStructure(Ref project) {
    const Raw whole{".ELEMENT."};
    const auto place = [this](std::optional<Ref> relativeTo, std::int64_t elevation) {
        return addPlacementAt(addPoint({metres(0), metres(0), metres(elevation)}), relativeTo);
    };
    const Ref sitePlacement = place(std::nullopt, 0);
    const Ref site =
        addRooted("IFCSITE", Text{"Site"}, kAbsent, sitePlacement, kAbsent, kAbsent, whole,
                  std::vector<Integer>{{49}, {5}, {59}}, std::vector<Integer>{{8}, {26}, {4}},
                  metres(110'000), kAbsent, kAbsent);
    const Ref buildingPlacement = place(sitePlacement, 0);
    const Ref address = batch_.add("IFCPOSTALADDRESS", kAbsent, kAbsent, kAbsent, kAbsent,
                                   std::vector<Text>{{R"(Hauptstra\X2\00DF\X0\e 1)"}}, kAbsent,
                                   Text{"Karlsruhe"}, kAbsent, Text{"76131"}, kAbsent);
    const Ref building = addRooted("IFCBUILDING", Text{"Building"}, kAbsent, buildingPlacement,
                                   kAbsent, kAbsent, whole, kAbsent, kAbsent, address);
    constexpr std::int64_t kStoreyHeight = 3'200;  // mm
    for (std::int64_t i = 0; i < storeyCount_; ++i) {
        frame_.storeyPlacements.push_back(place(buildingPlacement, i * kStoreyHeight));
        const std::string name = "Level " + std::to_string(i);
        frame_.storeys.push_back(addRooted("IFCBUILDINGSTOREY", Text{name}, kAbsent,
                                           frame_.storeyPlacements.back(), kAbsent, kAbsent, whole,
                                           metres(i * kStoreyHeight)));
    }
    addRooted("IFCRELAGGREGATES", kAbsent, project, std::vector<Ref>{site});
    addRooted("IFCRELAGGREGATES", kAbsent, site, std::vector<Ref>{building});
    addRooted("IFCRELAGGREGATES", kAbsent, building, frame_.storeys);
}

void ModelWriter::addStoreyContent(std::int64_t storey) {
    const std::int64_t end = options_.targetBytes * (storey + 1) / storeyCount_;
    do {
        addFamily(storey);
        if (batch_.size() >= batchLimit_ || (!refersForward() && belowForwardShare())) {
            writeBatch();
            startBatch();
        }
    } while (total_.bytes + batch_.estimatedBytes() < end);
    addRooted("IFCRELCONTAINEDINSPATIALSTRUCTURE", kAbsent, wallsOfStorey_,
              frame_.storeys[static_cast<std::size_t>(storey)]);
    writeBatch();
    startBatch();
    wallsOfStorey_.clear();
    writtenWalls_ = 0;
}

void ModelWriter::addFamily(std::int64_t storey) {
    const std::vector<Ref> common = addProperties(kWallCommon);
    const std::vector<Ref> phasing = addProperties(kPhasing);
    const std::int64_t size = random_.between(kMinWallsOfFamily, kMaxWallsOfFamily);
    std::vector<Ref> walls;
    for (std::int64_t i = 0; i < size; ++i)
        walls.push_back(addWall(storey, common));
    addSet("Pset_WallCommon", common, walls);
    addSet("Phasing", phasing, walls);

    const Ref usage = batch_.add("IFCMATERIALLAYERSETUSAGE", random_.oneOf(frame_.materials),
                                 Raw{".AXIS2."}, Raw{".POSITIVE."}, metres(-87), onlyIfc4(kAbsent));
    addRooted("IFCRELASSOCIATESMATERIAL", kAbsent, walls, usage);
    const Ref type = addRooted("IFCWALLTYPE", Text{random_.oneOf(kLabels)}, kAbsent, kAbsent,
                               kAbsent, kAbsent, kAbsent, Raw{".STANDARD."});
    addRooted("IFCRELDEFINESBYTYPE", kAbsent, walls, type);
    wallsOfStorey_.insert(wallsOfStorey_.end(), walls.begin(), walls.end());
}

Ref ModelWriter::addWall(std::int64_t storey, std::span<const Ref> familyProperties) {
    const std::int64_t x = random_.between(-50'000, 50'000);
    const std::int64_t y = random_.between(-50'000, 50'000);
    const Ref location = addPoint({metres(x), metres(y), metres(0)});
    const Ref placement =
        addPlacementAt(location, frame_.storeyPlacements[static_cast<std::size_t>(storey)]);

    const Ref axisEnd = addPoint({metres(random_.between(1'000, 12'000)), metres(0)});
    const Ref axisStart = addPoint({metres(0), metres(0)});
    const Ref axis = batch_.add("IFCPOLYLINE", std::vector<Ref>{axisStart, axisEnd});
    const Ref axisShape = batch_.add("IFCSHAPEREPRESENTATION", frame_.axisContext, Text{"Axis"},
                                     Text{"Curve2D"}, std::vector<Ref>{axis});
    const Ref bodyShape = addBody();
    const Ref shape = batch_.add("IFCPRODUCTDEFINITIONSHAPE", kAbsent, kAbsent,
                                 std::vector<Ref>{axisShape, bodyShape});

    ++wallCount_;
    const std::string name = "Basic Wall:Interior - Partition:" + std::to_string(wallCount_);
    const std::string tag = std::to_string(100'000 + wallCount_);
    const Ref wall = addRooted("IFCWALL", Text{name}, kAbsent, placement, shape, Text{tag},
                               onlyIfc4(Raw{".STANDARD."}));

    std::vector<Ref> constraints = addProperties(kConstraints);
    constraints.push_back(random_.oneOf(familyProperties));  // one property in several sets
    addSet("Constraints", constraints, {wall});
    addSet("Dimensions", addProperties(kDimensions), {wall});
    addQuantities(wall);
    return wall;
}

Ref ModelWriter::addBody() {
    const bool facetedBrep = random_.chance(kBrepPercent) || refersForward();
    const bool triangulated = random_.chance(kTriangulatedPercent) || refersForward();
    const Ref solid = facetedBrep ? addFacetedBrep(triangulated) : addExtrusion();
    batch_.add("IFCSTYLEDITEM", solid, std::vector<Ref>{random_.oneOf(frame_.styles)}, kAbsent);
    return batch_.add("IFCSHAPEREPRESENTATION", frame_.bodyContext, Text{"Body"},
                      Text{facetedBrep ? "Brep" : "SweptSolid"}, std::vector<Ref>{solid});
}

Ref ModelWriter::addExtrusion() {
    const std::int64_t length = random_.between(1'000, 12'000);
    const std::int64_t height = random_.between(2'200, 3'400);
    const Ref centre = addPoint({metres(length / 2), metres(0)});
    const Ref axes = batch_.add("IFCAXIS2PLACEMENT2D", centre, kAbsent);
    const Ref profile = batch_.add("IFCRECTANGLEPROFILEDEF", Raw{".AREA."}, kAbsent, axes,
                                   metres(length), metres(175));
    const Ref origin = addPoint({metres(0), metres(0), metres(0)});
    const Ref position =
        batch_.add("IFCAXIS2PLACEMENT3D", origin, frame_.axisZ, frame_.directions.front());
    return batch_.add("IFCEXTRUDEDAREASOLID", profile, position, frame_.axisZ, metres(height));
}

/// A wall with an uneven front and back: `pairs` corners in front and as many behind, extruded
/// upwards into faces.
Ref ModelWriter::addFacetedBrep(bool triangulated) {
    // Programs write coordinates rounded to millimetres, to a dozen digits or in full.
    static constexpr std::array kDigits = {std::pair{3, std::int64_t{1'000}},
                                           std::pair{12, std::int64_t{1'000'000'000'000}},
                                           std::pair{13, std::int64_t{10'000'000'000'000}}};
    const auto [decimals, metre] = random_.oneOf(kDigits);
    const std::int64_t pairs = random_.between(kMinOutlinePairs, kMaxOutlinePairs);
    const std::int64_t length = random_.between(1 * metre, 12 * metre);
    const Decimal top{random_.between(2 * metre, 4 * metre), decimals};
    const Decimal bottom{random_.chance(50) ? 0 : random_.between(-metre, metre), decimals};
    const std::int64_t thickness = metre / 5;

    const auto corners = static_cast<std::size_t>(2 * pairs);
    std::vector<Ref> lower(corners);
    std::vector<Ref> upper(corners);
    for (std::size_t i = 0; i < corners; ++i) {
        const auto corner = static_cast<std::int64_t>(i);
        const bool inFront = corner < pairs;
        const std::int64_t along = inFront ? corner : 2 * pairs - 1 - corner;
        const Decimal x{length * along / (pairs - 1), decimals};
        const Decimal y{(inFront ? -thickness : thickness) + random_.between(0, metre / 20),
                        decimals};
        lower[i] = addPoint({x, y, bottom});
        upper[i] = addPoint({x, y, top});
    }

    faces_.clear();
    for (std::size_t i = 0; i < corners; ++i) {
        const std::size_t next = (i + 1) % corners;
        if (triangulated) {
            addFace({lower[i], lower[next], upper[next]});
            addFace({lower[i], upper[next], upper[i]});
        } else {
            addFace({lower[i], lower[next], upper[next], upper[i]});
        }
    }
    if (triangulated) {
        for (std::size_t i = 0; i + 1 < corners / 2; ++i) {
            const std::size_t behind = corners - 1 - i;
            addFace({upper[i], upper[i + 1], upper[behind - 1]});
            addFace({upper[i], upper[behind - 1], upper[behind]});
            addFace({lower[i], lower[behind - 1], lower[i + 1]});
            addFace({lower[i], lower[behind], lower[behind - 1]});
        }
    } else {
        addFace(upper);
        addFace(std::vector<Ref>(lower.rbegin(), lower.rend()));
    }
    const Ref shell = batch_.add("IFCCLOSEDSHELL", faces_);
    return batch_.add("IFCFACETEDBREP", shell);
}

void ModelWriter::addFace(const std::vector<Ref>& points) {
    const Ref loop = batch_.add("IFCPOLYLOOP", points);
    const Ref bound = batch_.add("IFCFACEOUTERBOUND", loop, Raw{".T."});
    faces_.push_back(batch_.add("IFCFACE", std::vector<Ref>{bound}));
}

Ref ModelWriter::addProperty(const PropertyPattern& pattern) {
    const auto add = [&](const auto& value, const auto& unit) {
        return batch_.add("IFCPROPERTYSINGLEVALUE", Text{pattern.name}, kAbsent,
                          Typed{pattern.type, value}, unit);
    };
    switch (pattern.values) {
        case Values::kLabel: return add(Text{random_.oneOf(kLabels)}, kAbsent);
        case Values::kText: return add(Text{random_.oneOf(kTexts)}, kAbsent);
        case Values::kMark:
            return add(Text{std::to_string(random_.between(100'000, 999'999))}, kAbsent);
        case Values::kTruth: return add(Raw{random_.chance(50) ? ".T." : ".F."}, kAbsent);
        case Values::kWhole: return add(Integer{random_.between(0, 12)}, kAbsent);
        case Values::kMeasure: break;
    }
    const Decimal measure{random_.between(1, 99'999'999'999'999), 12};
    const bool inMillimetres = pattern.type == "IFCLENGTHMEASURE" && random_.chance(20);
    return inMillimetres ? add(measure, frame_.millimetre) : add(measure, kAbsent);
}

void ModelWriter::addSet(std::string_view name, const std::vector<Ref>& properties,
                         const std::vector<Ref>& objects) {
    const Ref set = addRooted("IFCPROPERTYSET", Text{name}, properties);
    addRooted("IFCRELDEFINESBYPROPERTIES", kAbsent, objects, set);
}

void ModelWriter::addQuantities(Ref wall) {
    const std::vector<Ref> quantities = {addQuantity("IFCQUANTITYLENGTH", "Length"),
                                         addQuantity("IFCQUANTITYLENGTH", "Height"),
                                         addQuantity("IFCQUANTITYAREA", "GrossSideArea"),
                                         addQuantity("IFCQUANTITYVOLUME", "NetVolume")};
    const Ref set = addRooted("IFCELEMENTQUANTITY", Text{"BaseQuantities"}, kAbsent, quantities);
    addRooted("IFCRELDEFINESBYPROPERTIES", kAbsent, std::vector<Ref>{wall}, set);
}

Ref ModelWriter::addQuantity(std::string_view type, std::string_view name) {
    const Decimal value{random_.between(1, 9'999'999'999'999), 12};
    return batch_.add(type, Text{name}, kAbsent, kAbsent, value, onlyIfc4(kAbsent));
}

void ModelWriter::writeBatch() {
    total_.add(batch_.write(out_, numbering_, order_));
    for (; writtenWalls_ < wallsOfStorey_.size(); ++writtenWalls_)
        wallsOfStorey_[writtenWalls_] = batch_.numbered(wallsOfStorey_[writtenWalls_]);
}

void ModelWriter::startBatch() {
    batch_.clear();
    order_ = belowForwardShare() ? LineOrder::kReferredLast : LineOrder::kReferredFirst;
}

void ModelWriter::numberFrame() {
    for (Ref* ref : {&frame_.history, &frame_.modelContext, &frame_.bodyContext,
                     &frame_.axisContext, &frame_.axisZ, &frame_.millimetre})
        *ref = batch_.numbered(*ref);
    for (std::vector<Ref>* refs : {&frame_.directions, &frame_.styles, &frame_.materials,
                                   &frame_.storeys, &frame_.storeyPlacements})
        for (Ref& ref : *refs)
            ref = batch_.numbered(ref);
}

}  // namespace

WrittenCounts writeModel(std::ostream& out, const ModelOptions& options) {
    return ModelWriter(out, options).write();
}

}  // namespace bench
