# For Nix: builds the package from the archive that scripts/package source makes.
#   nix-build packaging/default.nix --arg src ./build/package/orvel-0.1.0.tar.xz
{ pkgs ? import <nixpkgs> { }, src }:

pkgs.stdenv.mkDerivation {
  pname = "orvel";
  version = "0.1.0";
  inherit src;

  nativeBuildInputs = with pkgs; [ cmake ninja pkg-config gettext wayland-scanner makeWrapper ];
  buildInputs = with pkgs; [
    cli11 icu libunistring libpng simdjson
    cairo fontconfig freetype harfbuzz pango
    libxcb wayland wayland-protocols
  ];
  cmakeFlags = [ "-DBUILD_TESTING=OFF" "-DCMAKE_INSTALL_LIBDIR=lib" ];

  # Two libraries are looked for when they are needed; the cards' font is looked for among fontconfig's.
  postFixup = ''
    for program in $out/bin/*; do
      wrapProgram $program \
        --prefix LD_LIBRARY_PATH : ${pkgs.lib.makeLibraryPath [ pkgs.icu pkgs.fontconfig ]} \
        --prefix XDG_DATA_DIRS : ${pkgs.inter}/share
    done
  '';

  meta = {
    description = "Small designed cards on the desktop";
    license = pkgs.lib.licenses.mit;
    platforms = pkgs.lib.platforms.linux;
    mainProgram = "orvel";
  };
}
