# The two commands of the README, and the benchmarks.
BUILD ?= build
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=Release
JOBS ?= 2

.PHONY: demo check bench deps configure clean format check-asan check-tsan fuzz fuzz-ci

# Sanitizer trees: the whole suite under AddressSanitizer, leak detection and
# UndefinedBehaviorSanitizer; the concurrency test under ThreadSanitizer.
SAN_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
SUPP := $(CURDIR)/tools/sanitizers
export ASAN_OPTIONS ?= detect_leaks=1:abort_on_error=1:detect_stack_use_after_return=1
export LSAN_OPTIONS ?= suppressions=$(SUPP)/lsan.supp:print_suppressions=0
export UBSAN_OPTIONS ?= print_stacktrace=1:halt_on_error=1
export TSAN_OPTIONS ?= suppressions=$(SUPP)/tsan.supp:halt_on_error=1:second_deadlock_stack=1:print_suppressions=0
# The fuzz driver: FUZZ_SECONDS of calls from FUZZ_SEED on (make fuzz), or
# the bounded run of CI (make fuzz-ci: fixed seeds, under ASan and UBSan).
FUZZ_SECONDS ?= 60
FUZZ_SEED ?= 1
FUZZ_CI_SECONDS ?= 120

deps:
	@tools/install-deps.sh

configure: deps
	@test -f $(BUILD)/CMakeCache.txt || cmake -S . -B $(BUILD) $(CMAKE_FLAGS)

demo: configure
	cmake --build $(BUILD) -j $(JOBS) --target demo
	$(BUILD)/examples/demo

check: configure
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && ctest --output-on-failure -j $(JOBS)

bench: deps
	cmake -S . -B $(BUILD)-bench $(CMAKE_FLAGS) -DLBX_BENCH=ON -DBUILD_TESTING=OFF
	cmake --build $(BUILD)-bench -j $(JOBS)
	@for b in $(BUILD)-bench/bench/bench_*; do echo "== $$b"; $$b --benchmark_counters_tabular=true || exit 1; done

$(BUILD)-asan/CMakeCache.txt: | deps
	cmake -S . -B $(BUILD)-asan $(SAN_FLAGS) -DLBX_SANITIZE=address

check-asan: deps $(BUILD)-asan/CMakeCache.txt
	cmake --build $(BUILD)-asan -j $(JOBS)
	cd $(BUILD)-asan && ctest --output-on-failure -j $(JOBS)

check-tsan: deps
	@test -f $(BUILD)-tsan/CMakeCache.txt || cmake -S . -B $(BUILD)-tsan $(SAN_FLAGS) -DLBX_SANITIZE=thread
	cmake --build $(BUILD)-tsan -j $(JOBS) --target test_concurrency
	cd $(BUILD)-tsan/tests && OMP_NUM_THREADS=1 ./test_concurrency

fuzz: deps $(BUILD)-asan/CMakeCache.txt
	cmake --build $(BUILD)-asan -j $(JOBS) --target lbx_fuzz
	$(BUILD)-asan/tests/fuzz/lbx_fuzz --seconds $(FUZZ_SECONDS) --seed $(FUZZ_SEED)

fuzz-ci: deps $(BUILD)-asan/CMakeCache.txt
	cmake --build $(BUILD)-asan -j $(JOBS) --target lbx_fuzz
	$(BUILD)-asan/tests/fuzz/lbx_fuzz --seconds $(FUZZ_CI_SECONDS) --seed 1 --fixed

clean:
	rm -rf $(BUILD) $(BUILD)-bench $(BUILD)-asan $(BUILD)-tsan

format:
	git ls-files '*.cpp' '*.hpp' '*.h' '*.c' | xargs clang-format -i
