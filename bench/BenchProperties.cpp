// SPDX-License-Identifier: BSD-3-Clause
// Named values looked up without regard to case, in sets of 20 and of 2,000 names, and the process-wide
// store: ours, and what one would write by hand.
#include "Measure.h"

#include "peers/Workload.h"

#include <ZyGlobal.h>
#include <ZyProperties.h>

#include <QHash>
#include <QString>
#include <QVariant>

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include <strings.h>

namespace bench
{

namespace
{

using Texts = std::vector<std::string>;

Texts namesOf(unsigned count)
{
    Random random(21);
    Texts names;
    for (unsigned i = 0; i < count; ++i) {
        std::string const digits = std::to_string(i);
        names.push_back("Option." + random.word() + "." + std::string(4 - digits.size(), '0') + digits);
    }
    return names;
}

Texts upper(Texts names)
{
    for (std::string & name : names) {
        for (char & character : name) {
            character = static_cast<char>(character >= 'a' && character <= 'z' ? character - 32 : character);
        }
    }
    return names;
}

struct Less
{
    bool operator()(std::string const & a, std::string const & b) const
    {
        return strcasecmp(a.c_str(), b.c_str()) < 0;
    }
};

/** Looks every name up once. */
template <class Asked, class Find>
void addLookups(std::string const & name, std::vector<Asked> const & asked, Find find)
{
    addLoop(name, static_cast<unsigned>(asked.size()), [asked, find] {
        long sum = 0;
        for (Asked const & one : asked) {
            sum += find(one);
        }
        return sum;
    });
}

void registerOurLookups(std::string const & prefix, Texts const & names, Texts const & asked)
{
    ZyProperties set;
    for (std::size_t i = 0; i < names.size(); ++i) {
        set.add(ZyString(names[i]), static_cast<int>(i));
    }
    std::vector<ZyString> const texts(asked.begin(), asked.end());
    addLookups(prefix + "ours", texts, [set](ZyString const & one) { return set.value(one).asInteger(); });
    addLookups(prefix + "ours-get", texts,
               [set](ZyString const & one) { return set.get(one).lock()->value().asInteger(); });
    addLookups(prefix + "ours-literal", asked,
               [set](std::string const & one) { return set.value(one.c_str()).asInteger(); });
}

void registerLookups(unsigned count)
{
    std::string const prefix = "properties/" + std::to_string(count) + "/";
    Texts const names = namesOf(count);
    Texts const asked = upper(names);
    registerOurLookups(prefix, names, asked);
    std::vector<std::pair<std::string, int>> vector;
    std::map<std::string, int, Less> map;
    QHash<QString, QVariant> hash;
    for (std::size_t i = 0; i < names.size(); ++i) {
        vector.emplace_back(names[i], static_cast<int>(i));
        map[names[i]] = static_cast<int>(i);
        hash.insert(QString::fromStdString(names[i]).toLower(), QVariant(static_cast<int>(i)));
    }
    addLookups(prefix + "vector-strcasecmp", asked, [vector](std::string const & one) {
        for (auto const & entry : vector) {
            if (entry.first.size() == one.size() && strcasecmp(entry.first.c_str(), one.c_str()) == 0) {
                return entry.second;
            }
        }
        return -1;
    });
    addLookups(prefix + "map-strcasecmp", asked,
               [map](std::string const & one) { return map.find(one)->second; });
    addLookups(prefix + "QHash-lower", asked, [hash](std::string const & one) {
        return hash.value(QString::fromStdString(one).toLower()).toInt();
    });
}

/** Makes a set of all names. */
void registerFills(unsigned count)
{
    std::string const prefix = "properties-fill/" + std::to_string(count) + "/";
    Texts const names = namesOf(count);
    std::vector<ZyString> const texts(names.begin(), names.end());
    addLoop(prefix + "ours", count, [texts] {
        ZyProperties set;
        for (ZyString const & name : texts) {
            set.add(name, 1);
        }
        return set.size();
    });
    addLoop(prefix + "vector-strcasecmp", count, [names] {
        std::vector<std::pair<std::string, QVariant>> set;
        for (std::string const & name : names) {
            bool there = false;
            for (auto const & entry : set) {
                there = there || (entry.first.size() == name.size() &&
                                  strcasecmp(entry.first.c_str(), name.c_str()) == 0);
            }
            if (!there) {
                set.emplace_back(name, QVariant(1));
            }
        }
        return set.size();
    });
}

/** What one would write: the same objects behind a map. */
using ByHand = std::unordered_map<std::string, std::shared_ptr<std::deque<double>>>;

void registerGlobals()
{
    constexpr unsigned count = 100;
    std::vector<ZyUUID> ids(count);
    std::vector<std::string> keys;
    auto const plain = std::make_shared<std::unordered_map<std::string, double>>();
    auto const deques = std::make_shared<ByHand>();
    for (ZyUUID const & id : ids) {
        keys.push_back(id.toString().toStdString());
        ZyGlobal::Set(1.0, id);
        (*plain)[keys.back()] = 1.0;
        (*deques)[keys.back()] = std::make_shared<std::deque<double>>(1, 1.0);
    }
    addLookups("global-get/ours", ids, [](ZyUUID const & id) { return long(ZyGlobal::GetDouble(id)); });
    addLookups("global-get/unordered_map", keys,
               [plain](std::string const & key) { return long(plain->find(key)->second); });
    addLookups("global-get/map-of-deques", keys,
               [deques](std::string const & key) { return long(deques->find(key)->second->front()); });
    addLookups("global-set/ours", ids, [](ZyUUID const & id) {
        ZyGlobal::Set(2.0, id);
        return 1;
    });
    addLookups("global-set/unordered_map", keys, [plain](std::string const & key) {
        (*plain)[key] = 2.0;
        return 1;
    });
    addLookups("global-set/map-of-deques", keys, [deques](std::string const & key) {
        (*deques)[key] = std::make_shared<std::deque<double>>(1, 2.0);
        return 1;
    });
}

} // namespace

void registerBenchmarks()
{
    for (unsigned const count : {20u, 2000u}) {
        registerLookups(count);
        registerFills(count);
    }
    registerGlobals();
}

} // namespace bench
