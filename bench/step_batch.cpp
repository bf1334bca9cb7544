#include "bench/step_batch.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace bench {

namespace {

constexpr std::int64_t kLargestNumber = std::numeric_limits<std::int32_t>::max();

// With gaps: most numbers stand in blocks that begin millions apart, up to a quarter below the
// largest number; one in kScatterEvery stands alone in the quarter above. The room is for 100
// million instances.
constexpr std::int64_t kBlockSize = 4'000;
constexpr std::int64_t kBlockDistance = 3'000'017;
constexpr std::int64_t kBlockTurn =
    30'011;  // blocks of the next turn stand in the gaps of the one before
constexpr std::int64_t kBlocksPerTurn = 500;
constexpr std::int64_t kScatterEvery = 997;
constexpr std::int64_t kScatterRange = std::int64_t{1} << 29;
constexpr std::int64_t kScatterStep =
    347'234'153;  // odd, so that it meets every number of the range once

void appendNumber(std::string& text, std::int64_t number) {
    char digits[20];
    const auto result = std::to_chars(std::begin(digits), std::end(digits), number);
    text.append(digits, result.ptr);
}

}  // namespace

void WrittenCounts::add(const WrittenCounts& other) {
    bytes += other.bytes;
    instances += other.instances;
    forward += other.forward;
    largestNumber = std::max(largestNumber, other.largestNumber);
}

std::int64_t Numbering::next() {
    ++given_;
    if (!withGaps_)
        return given_;
    if (given_ % kScatterEvery == 0)
        return kLargestNumber - (scattered_++ * kScatterStep) % kScatterRange;
    if (inBlock_ == kBlockSize) {
        inBlock_ = 0;
        ++block_;
    }
    const std::int64_t begin =
        (block_ % kBlocksPerTurn) * kBlockDistance + (block_ / kBlocksPerTurn) * kBlockTurn;
    return begin + ++inBlock_;
}

std::int64_t Batch::estimatedBytes() const {
    constexpr std::int64_t kBytesPerNumber = 7;
    constexpr std::int64_t kBytesAroundInstance = 6;  // "#", number, "= ", ";", line end
    return static_cast<std::int64_t>(text_.size() + holes_.size() * kBytesPerNumber) +
           static_cast<std::int64_t>(instances_.size()) * (kBytesAroundInstance + kBytesPerNumber);
}

Ref Batch::begin(std::string_view type) {
    text_.append(type);
    text_.push_back('(');
    first_ = true;
    return Ref{-static_cast<std::int64_t>(instances_.size())};
}

void Batch::end() {
    text_.push_back(')');
    instances_.push_back({text_.size(), holes_.size()});
}

void Batch::separate() {
    if (!first_)
        text_.push_back(',');
    first_ = false;
}

void Batch::append(Ref ref) {
    text_.push_back('#');
    if (ref.value > 0)
        appendNumber(text_, ref.value);
    else
        holes_.push_back({text_.size(), static_cast<std::uint32_t>(-ref.value)});
}

void Batch::append(Text text) {
    text_.push_back('\'');
    text_.append(text.encoded);
    text_.push_back('\'');
}

void Batch::append(Integer integer) { appendNumber(text_, integer.value); }

void Batch::append(Decimal decimal) {
    if (decimal.value < 0)
        text_.push_back('-');
    std::uint64_t magnitude =
        static_cast<std::uint64_t>(decimal.value < 0 ? -decimal.value : decimal.value);
    char fraction[20];
    int digits = 0;
    for (int i = decimal.decimals; i > 0; --i) {
        fraction[i - 1] = static_cast<char>('0' + magnitude % 10);
        magnitude /= 10;
        if (digits == 0 && fraction[i - 1] != '0')
            digits = i;
    }
    appendNumber(text_, static_cast<std::int64_t>(magnitude));
    text_.push_back('.');
    text_.append(fraction, static_cast<std::size_t>(digits));
}

std::size_t Batch::textBegin(std::size_t instance) const {
    return instance == 0 ? 0 : instances_[instance - 1].textEnd;
}

std::size_t Batch::holesBegin(std::size_t instance) const {
    return instance == 0 ? 0 : instances_[instance - 1].holesEnd;
}

std::vector<std::uint32_t> Batch::lines(LineOrder order) const {
    std::vector<std::uint32_t> result(instances_.size());
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = static_cast<std::uint32_t>(i);
    if (order == LineOrder::kReferredLast) {
        std::reverse(result.begin(), result.end());
        std::stable_partition(result.begin(), result.end(), [this](std::uint32_t instance) {
            return instances_[instance].holesEnd != holesBegin(instance);
        });
    }
    return result;
}

WrittenCounts Batch::write(std::ostream& out, Numbering& numbering, LineOrder order) {
    const std::vector<std::uint32_t> instancesInOrder = lines(order);
    std::vector<std::uint32_t> lineOf(instances_.size());
    numbers_.resize(instances_.size());
    WrittenCounts counts;
    for (std::uint32_t line = 0; line < instancesInOrder.size(); ++line) {
        const std::uint32_t instance = instancesInOrder[line];
        lineOf[instance] = line;
        numbers_[instance] = numbering.next();
        counts.largestNumber = std::max(counts.largestNumber, numbers_[instance]);
    }

    std::string buffer;
    buffer.reserve(text_.size() * 2);
    for (const std::uint32_t instance : instancesInOrder) {
        buffer.push_back('#');
        appendNumber(buffer, numbers_[instance]);
        buffer.append("= ");
        std::size_t copied = textBegin(instance);
        bool refersForward = false;
        for (std::size_t i = holesBegin(instance); i < instances_[instance].holesEnd; ++i) {
            const Hole& hole = holes_[i];
            buffer.append(text_, copied, hole.offset - copied);
            copied = hole.offset;
            appendNumber(buffer, numbers_[hole.target]);
            refersForward = refersForward || lineOf[hole.target] > lineOf[instance];
        }
        buffer.append(text_, copied, instances_[instance].textEnd - copied);
        buffer.append(";\n");
        counts.forward += refersForward ? 1 : 0;
    }
    out.write(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    counts.bytes = static_cast<std::int64_t>(buffer.size());
    counts.instances = static_cast<std::int64_t>(instances_.size());
    return counts;
}

Ref Batch::numbered(Ref ref) const {
    return ref.value > 0 ? ref : Ref{numbers_[static_cast<std::size_t>(-ref.value)]};
}

void Batch::clear() {
    text_.clear();
    holes_.clear();
    instances_.clear();
    numbers_.clear();
}

}  // namespace bench
