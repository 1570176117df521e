#version 450

uniform vec2 resolution;
uniform sampler2D fbo;

in vec2 texcoord;
out vec4 outputColor;

const float ratio = 27.0 / 64.0;

/// 0 in the bars above and below the picture, 1 elsewhere.
float letterbox(vec2 resolution, vec2 coord)
{
    float bar = (resolution.y - (resolution.x * ratio)) * 0.5;
    return coord.y < bar || coord.y > (resolution.y - bar) ? 0.0 : 1.0;
}

void main()
{
    vec3 color = texture(fbo, texcoord).rgb;
    outputColor = vec4(color * letterbox(resolution, vec2(gl_FragCoord)), 1.0);
}
