#include <ZyCore.h>

#include <atomic>
#include <iostream>
#include <vector>

// Hands out the numbers 0, 1, 2 ... below a limit, each once.
class Numbers final : public ZyAbstractParallelProblem::WorkSource
{
public:
    explicit Numbers(unsigned int limit) : m_limit(limit) {}
    void prepare(unsigned int threads) override { m_claimed.resize(threads); }
    bool next(unsigned int thread) override
    {
        m_claimed[thread].number = m_next++;
        return m_claimed[thread].number < m_limit;
    }
    ZyAbstractParallelProblem::Item current(unsigned int thread) override { return m_claimed[thread].number; }
    bool pending() override { return false; }

private:
    // What a thread writes all the time lies apart from what the others write.
    struct alignas(128) Claim
    {
        unsigned int number = 0;
    };

    unsigned int const m_limit;
    std::atomic<unsigned int> m_next{0};
    std::vector<Claim> m_claimed;
};

class PrimeCount final : public ZyAbstractParallelProblem
{
public:
    PrimeCount(unsigned int threads, unsigned int limit)
        : ZyAbstractParallelProblem(threads), m_numbers(limit)
    {}
    // First of all: the threads use this object until they are stopped.
    ~PrimeCount() override { stopWorkers(); }

    ZyUniquePtr<ThreadMemory> createThreadMemory() override { return ZyUniquePtr<ThreadMemory>(new Memory); }
    WorkSource const & workSource() const override { return m_numbers; }
    WorkSource & workSource() override { return m_numbers; }
    void solve(Item number, ThreadMemory & memory) override
    {
        static_cast<Memory &>(memory).primes += isPrime(number) ? 1 : 0;
    }
    unsigned int primes() const
    {
        unsigned int all = 0;
        forEachResult(
            [&](ThreadMemory const & memory) { all += static_cast<Memory const &>(memory).primes; });
        return all;
    }

private:
    // One for each thread, so that nothing of it needs a lock.
    struct Memory : ThreadMemory
    {
        unsigned int primes = 0;
    };

    static bool isPrime(unsigned int number)
    {
        for (unsigned int divisor = 2; divisor * divisor <= number; ++divisor) {
            if (number % divisor == 0) {
                return false;
            }
        }
        return number > 1;
    }

    Numbers m_numbers;
};

int main()
{
    PrimeCount problem(4, 100000);
    problem.run();
    std::cout << problem.primes() << " primes\n";
}
