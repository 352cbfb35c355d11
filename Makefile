# The two commands of the README, the benchmarks, and the Windows DLL.
BUILD ?= build
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=Release
JOBS ?= 2

DLL_BUILD ?= build-dll

.PHONY: demo check bench deps configure clean format dll-deps dll check-dll

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

# The 32-bit Windows DLL: Debian's mingw-w64 cross compilers and Wine are
# installed on first use; reference BLAS/LAPACK and FFTW are cross-built from
# Debian's source packages once and cached in $(DLL_BUILD)/deps.
dll-deps:
	@tools/install-deps.sh --windows
	@JOBS=$(JOBS) tools/build-win-deps.sh $(DLL_BUILD)/deps lapack fftw

dll: dll-deps
	@test -f $(DLL_BUILD)/CMakeCache.txt || cmake -S windows -B $(DLL_BUILD) -G Ninja \
	  -DCMAKE_TOOLCHAIN_FILE=$(CURDIR)/cmake/mingw-i686.cmake -DLBX_DEPS=$(CURDIR)/$(DLL_BUILD)/deps/prefix
	cmake --build $(DLL_BUILD) -j $(JOBS)

check-dll: dll
	tests/dll/run.sh $(DLL_BUILD) -j $(JOBS) --timeout 120

clean:
	rm -rf $(BUILD) $(BUILD)-bench $(DLL_BUILD)

format:
	git ls-files '*.cpp' '*.hpp' '*.h' '*.c' | xargs clang-format -i
