# The Debian packages each job needs; sourced by ./run, ./test and .ci/run.
build_packages=(g++ cmake ninja-build libcli11-dev nlohmann-json3-dev libxxhash-dev qt6-base-dev qt6-svg-dev
                fonts-dejavu-core libpugixml-dev)
test_packages=(libgtest-dev libgmock-dev python3 python3-ezdxf poppler-utils)
check_packages=(clang clang-tidy clang-format libclang-rt-14-dev)
bench_packages=(libbenchmark-dev libdxflib-dev libgeos-dev libboost-dev)

# The DWG converter and the font check run on Node.js: any that is there already will do.
node_packages=()
command -v node >/dev/null && command -v npm >/dev/null || node_packages=(nodejs npm)
