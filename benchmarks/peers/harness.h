// Times a peer on every workload, or counts its instructions. A peer is a class template over the workload:
//
//     void encode(const Record &record)   leaves the message with the peer
//     void decode(Record &record)         out of that message; the record was zeroed at the beginning
//     static constexpr bool round_trips   does what is decoded equal what was encoded? It is checked before timing
//
// Starting from and ending in plain records, texts copied.

#ifndef GORVANET_BENCHMARKS_PEERS_HARNESS_H
#define GORVANET_BENCHMARKS_PEERS_HARNESS_H

#include "../workloads.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

// What is measured, as in "W1/libGorvanet/encode".
struct Operation {
    std::string name;
    void (*time)(benchmark::State &state);
    void (*once)();
};

std::vector<Operation> &operations();

template <template <typename> typename Peer, typename Workload> struct Bench {
    using Record = typename Workload::Record;

    static Peer<Workload> &peer()
    {
        static Peer<Workload> made;
        return made;
    }

    static const Record &sample()
    {
        alignas(64) static const Record record = Workload::record();
        return record;
    }

    static Record &decoded()
    {
        alignas(64) static Record record;
        return record;
    }

    static void encode_once()
    {
        peer().encode(sample());
    }

    static void decode_once()
    {
        peer().decode(decoded());
    }

    static void encode(benchmark::State &state)
    {
        for (auto each : state) {
            peer().encode(sample());
            benchmark::ClobberMemory();
        }
    }

    static void decode(benchmark::State &state)
    {
        for (auto each : state) {
            peer().decode(decoded());
            benchmark::ClobberMemory();
        }
    }

    static void add(const std::string &workload, const std::string &name)
    {
        encode_once();
        decode_once();
        if (Peer<Workload>::round_trips && memcmp(&decoded(), &sample(), sizeof(Record)) != 0) {
            fprintf(stderr, "%s does not bring %s back\n", name.c_str(), workload.c_str());
            exit(1);
        }
        operations().push_back({workload + "/" + name + "/encode", encode, encode_once});
        operations().push_back({workload + "/" + name + "/decode", decode, decode_once});
    }
};

// A peer's source ends with one of these, and is left out of the build where the peer is not installed.
template <template <typename> typename Peer> struct Timed {
    explicit Timed(const std::string &name)
    {
        Bench<Peer, W1>::add("W1", name);
        Bench<Peer, W2>::add("W2", name);
        Bench<Peer, W3>::add("W3", name);
        Bench<Peer, W4>::add("W4", name);
        Bench<Peer, W5>::add("W5", name);
        Bench<Peer, W6>::add("W6", name);
    }
};

#endif
