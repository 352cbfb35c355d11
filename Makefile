# The two commands of the README, and the benchmarks.
BUILD ?= build
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=Release
JOBS ?= 2

.PHONY: demo check bench deps configure clean format

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

clean:
	rm -rf $(BUILD) $(BUILD)-bench

format:
	git ls-files '*.cpp' '*.hpp' '*.h' '*.c' | xargs clang-format -i
