% The sweep of bench/studies.sh in Octave, all panels at once; dlmwrite writes the rows.
words = argv();
side = str2double(words{1});
[depth, web] = meshgrid(linspace(50, 900, side), linspace(2, 12, side));
web = reshape(web', [], 1);
depth = reshape(depth', [], 1);
height = 4.5; hole = 9.5; barrier = 10; holes = 14; strength = 900; weight = 162; angle = 21; len = 1e6;
pillar = @(width) strength * 144 * (0.54 * width / height - 0.18 * width .^ 2 / (height * len) + 0.64);
span = (holes - 1) * web + holes * hole;
t = tan(angle * 0.017453292519943278);
wide = depth .^ 2 * t * weight / 2;
narrow = (depth .* span / 2 - span .^ 2 / (8 * t)) * weight;
side_load = narrow;
beyond = span / 2 > depth * t;
side_load(beyond) = wide(beyond);
webs = pillar(web) .* web;
overall = (pillar(barrier) * barrier + (holes - 1) * webs) ./ ((span + barrier) * weight .* depth);
rows = [web, depth, overall, webs ./ (weight * depth .* (hole + web)), ...
        pillar(barrier) * barrier ./ (2 * side_load + weight * depth * barrier), ...
        100 * holes * hole ./ ((holes - 1) * web + barrier + holes * hole)];
dlmwrite(words{2}, rows, "precision", "%.17g");
