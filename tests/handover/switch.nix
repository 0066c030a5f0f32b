# What nix-darwin and home-manager make at a switch of what their modules say, as far as it concerns preferences.
let
  inherit (builtins) attrValues concatLists concatStringsSep mapAttrs replaceStrings toString typeOf;

  lines = concatStringsSep "\n";
  escapeXml = replaceStrings [ "&" "<" ">" "\"" "'" ] [ "&amp;" "&lt;" "&gt;" "&quot;" "&apos;" ];
  quoted = text: "'${replaceStrings [ "'" ] [ "'\\''" ] text}'";

  # Numbers have the six decimals that the language writes.
  element = value: {
    bool = if value then "<true/>" else "<false/>";
    float = "<real>${toString value}</real>";
    string = "<string>${escapeXml value}</string>";
    set = lines ([ "<dict>" ] ++ attrValues (mapAttrs (key: each: "<key>${escapeXml key}</key>\n${element each}") value)
      ++ [ "</dict>" ]);
  }.${typeOf value};

  plist = value: ''
    <?xml version="1.0" encoding="UTF-8"?>
    <!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
    <plist version="1.0">
    ${element value}
    </plist>
  '';

  write = domain: key: value:
    "defaults write ${domain} ${quoted key} $'${replaceStrings [ "'" ] [ "\\'" ] (plist value)}'";
  writes = domain: values: attrValues (mapAttrs (write domain) values);
in
{
  # The shell text of the activation of USER. Each value goes in as a property list of its own.
  nix-darwin = user: { system ? { } }:
    let
      defaults = { dock = { }; CustomUserPreferences = { }; } // (system.defaults or { });
      custom = concatLists (attrValues (mapAttrs writes defaults.CustomUserPreferences));
    in
    lines ([ "set -e" "set -o pipefail" ] ++ writes "com.apple.dock" defaults.dock ++ custom
      ++ (if defaults.dock == { } then [ ] else [ "killall -qu ${quoted user} Dock || true" ]));

  # For each domain the property list that is imported.
  home-manager = { targets ? { }, ... }: mapAttrs (_: plist) (targets.darwin.defaults or { });
}
