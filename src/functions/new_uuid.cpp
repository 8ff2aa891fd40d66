#include "functions/new_uuid.h"

#include <algorithm>

#include "files/digest.h"
#include "platform/file_details.h"
#include "platform/random_bytes.h"
#include "text/encoding.h"

std::optional<Uuid> NewUuid(std::int64_t version)
{
    Uuid random;
    if ((version != 1 && version != 4 && version != 7) || !SystemRandomBytes(random.data(), random.size()))
        return std::nullopt;
    if (version == 4)
        return StampUuid(random, 4);
    return version == 1 ? TimeUuid1(FileTimeNow(), random) : TimeUuid7(FileTimeNow(), random);
}

Uuid NamedUuid(int version, const Uuid& space, std::u16string_view name)
{
    Digest digest(version == 3 ? DigestKind::Md5 : DigestKind::Sha1);
    digest.Update({reinterpret_cast<const char*>(space.data()), space.size()});
    digest.Update(ToUtf8(name));
    const std::string hash = digest.Finish();
    Uuid uuid;
    std::transform(hash.begin(), hash.begin() + uuid.size(), uuid.begin(),
                   [](char unit) { return static_cast<std::uint8_t>(unit); });
    return StampUuid(uuid, version);
}
